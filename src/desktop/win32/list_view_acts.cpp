// What a person does in a list's window, turned into the control's events.
#include <windowsx.h>

#include <algorithm>

#include "desktop/win32/clipboard.h"
#include "desktop/win32/list_view_peer.h"
#include "desktop/win32/popup_menu.h"

namespace tidemark {
namespace {

constexpr UINT kPerformAct = WM_APP + 0x40;
constexpr LPARAM kRepeated = LPARAM{1} << 30;  // in WM_KEYDOWN: the key has been down before

POINT PointOf(LPARAM lparam) { return {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)}; }

struct Hit {
  int row = 0;  // 0 when no row is hit
  bool check_box = false;
};

Hit HitAt(HWND window, POINT point) {
  LVHITTESTINFO hit = {};
  hit.pt = point;
  ListView_SubItemHitTest(window, &hit);
  return {hit.iItem + 1, (hit.flags & LVHT_ONITEM) == LVHT_ONITEMSTATEICON};
}

}  // namespace

Answer ListViewPeer::OnNotify(NMHDR& header) {
  const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(header);
  switch (header.code) {
    case LVN_GETDISPINFOW:
      TellRow(reinterpret_cast<NMLVDISPINFOW&>(header).item);
      return 0;
    case LVN_ODFINDITEMW:
      return FindRow(reinterpret_cast<const NMLVFINDITEMW&>(header));
    case LVN_ITEMCHANGED:
      OnItemChanged(reinterpret_cast<const NMLISTVIEW&>(header));
      return 0;
    case LVN_ENDSCROLL:
      list_.scrolled_pixels = GetScrollPos(window_, SB_HORZ);
      return 0;
    case LVN_ODSTATECHANGED:
      NoteSelection();
      return 0;
    case NM_CLICK:
      // A row that was selected before does not change, but a click is a click.
      if (click.iItem >= 0 && !press_selected_ && !list_.multi_select)
        Post(Act::kSelect, click.iItem + 1);
      return 0;
    case NM_DBLCLK:
      OnDoubleClick(click.iItem + 1);
      return 0;
    case LVN_COLUMNCLICK:
      Post(Act::kClickColumn,
           columns_.ColumnAt(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem) + 1);
      return 0;
    case NM_CUSTOMDRAW:
      return OnCustomDraw(reinterpret_cast<const NMLVCUSTOMDRAW&>(header));
    default:
      return {};
  }
}

void ListViewPeer::OnItemChanged(const NMLISTVIEW& change) {
  if (refreshing_ || (change.uChanged & LVIF_STATE) == 0) return;
  if (list_.multi_select) return NoteSelection();
  const int row = change.iItem + 1;  // 0: all rows
  const bool was = (change.uOldState & LVIS_SELECTED) != 0;
  const bool is = (change.uNewState & LVIS_SELECTED) != 0;
  if (is && !was && row != 0) {
    selected_row_ = row;
    // The platform may take a selection away and give it back.
    if (list_.Item(row) == list_.SelectedItem()) return;
    press_selected_ = true;
    Post(Act::kSelect, row);
  } else if (!is && (row == 0 || row == selected_row_)) {
    selected_row_ = 0;  // the next refresh selects the control's row again
  }
}

// Of many rows each tells of itself; one act takes them all.
void ListViewPeer::NoteSelection() {
  if (!list_.multi_select || refreshing_ || selection_noted_) return;
  selection_noted_ = true;
  Post(Act::kSelectRows, 0);
}

void ListViewPeer::TakeSelection() {
  std::vector<int> rows;
  for (int row = -1; (row = ListView_GetNextItem(window_, row, LVNI_SELECTED)) >= 0;) {
    rows.push_back(row + 1);
  }
  selected_rows_.clear();
  for (const int row : rows) selected_rows_.push_back(list_.Item(row));
  const int focused = ListView_GetNextItem(window_, -1, LVNI_FOCUSED | LVNI_SELECTED) + 1;
  list_.UserSelectRows(rows, focused != 0 || rows.empty() ? focused : rows.front());
}

void ListViewPeer::OnDoubleClick(int row) {
  const ListItem* item = list_.Item(row);
  if (item == nullptr) return;
  if (item != list_.SelectedItem()) Post(Act::kSelect, row);
  Post(Act::kDoubleClick, row);
}

Answer ListViewPeer::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case kPerformAct:
      --acts_posted_;
      Perform(static_cast<Act>(LOWORD(wparam)), HIWORD(wparam), static_cast<int>(lparam));
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_RBUTTONUP:
      tool_tip_.OnMouse(message, wparam, lparam);
      return OnPress(message, wparam, lparam);
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
      tool_tip_.OnMouse(message, wparam, lparam);
      return {};
    case WM_KEYDOWN:
    case WM_CHAR:
      return OnKey(message, wparam, lparam);
    case WM_CONTEXTMENU:
      // The headings' own one comes by here too.
      if (wparam == reinterpret_cast<WPARAM>(window_)) OnContextMenu(lparam);
      return 0;
    case WM_PAINT:
    case WM_SIZE:
      view_known_ = false;
      return {};
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      if (message == WM_SETFOCUS) ShowFocus();
      if (row_count_ == 0) InvalidateRect(window_, nullptr, TRUE);
      return {};
    default:
      return {};
  }
}

Answer ListViewPeer::OnPress(UINT message, WPARAM wparam, LPARAM lparam) {
  const Hit hit = HitAt(window_, PointOf(lparam));
  const bool left = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
  if (hit.row != 0 && !(left && hit.check_box)) {
    if (message != WM_RBUTTONUP) press_selected_ = false;
    return {};
  }
  // Beside the rows nothing happens to the selection; the platform would take it away.
  if (message == WM_RBUTTONUP) return DefWindowProcW(window_, message, wparam, lparam);
  if (hit.row != 0) Post(Act::kCheck, hit.row);
  SetFocus(window_);
  return 0;
}

Answer ListViewPeer::OnKey(UINT message, WPARAM key, LPARAM lparam) {
  constexpr WPARAM kFirstPrinting = L' ';
  if (message == WM_CHAR && key < kFirstPrinting) return 0;  // no search for what Ctrl makes
  if (message == WM_KEYDOWN && GetKeyState(VK_CONTROL) < 0) {
    if (key == 'C') Copy();
    if (key == 'A' && list_.multi_select) {
      ListView_SetItemState(window_, -1, LVIS_SELECTED, LVIS_SELECTED);
    }
    if (key == 'A' || key == 'C') return 0;
  }
  // With Ctrl it selects, as in every list.
  if (key != VK_SPACE || !list_.check_boxes || GetKeyState(VK_CONTROL) < 0) return {};
  const int row = KeyboardRow();
  if (message == WM_KEYDOWN && (lparam & kRepeated) == 0 && row != 0) Post(Act::kCheck, row);
  return 0;
}

void ListViewPeer::Copy() const {
  const std::string text = list_.SelectedText();
  if (!text.empty()) CopyToClipboard(window_, text);
}

// Does what a double click does.
bool ListViewPeer::OnEnter() {
  if (!list_.DoubleClicked.IsBound()) return false;
  OnDoubleClick(KeyboardRow());
  return true;
}

int ListViewPeer::KeyboardRow() const {
  // Of several selected rows the one that bears the focus.
  const int focused = ListView_GetNextItem(window_, -1, LVNI_FOCUSED) + 1;
  if (list_.multi_select && focused != 0) return focused;
  // The control's row: it may have been sorted to another place since the last refresh.
  const int selected = list_.IndexOf(list_.SelectedItem());
  return selected != 0 ? selected : focused;
}

void ListViewPeer::OnContextMenu(LPARAM lparam) {
  if (lparam == -1) return Post(Act::kKeyboardMenu, KeyboardRow());
  POINT point = PointOf(lparam);
  ScreenToClient(window_, &point);
  Post(Act::kContextMenu, HitAt(window_, point).row);
}

// Below the text of the row, or in the list's corner.
POINT ListViewPeer::MenuPlaceOf(int row) const {
  RECT label{};
  POINT point{0, 0};
  if (row != 0) ListView_EnsureVisible(window_, row - 1, FALSE);
  if (row != 0 && ListView_GetItemRect(window_, row - 1, &label, LVIR_LABEL) != FALSE) {
    point = {std::max(label.left, 0L), label.bottom};
  }
  ClientToScreen(window_, &point);
  return point;
}

void ListViewPeer::Post(Act act, int number) {
  // A person acts on what the window shows. Where the list has been cleared since, that is gone.
  const auto cleared = static_cast<WORD>(times_cleared_);
  const WPARAM what = MAKEWPARAM(static_cast<WORD>(act), cleared);
  if (PostMessageW(window_, kPerformAct, what, number) != FALSE) ++acts_posted_;
}

// Raises an event as its last act.
void ListViewPeer::Perform(Act act, WORD times_cleared, int number) {
  if (act == Act::kSelectRows) selection_noted_ = false;
  // A box that a handler has shown meanwhile keeps everything behind it still.
  if (IsWindowVisible(window_) == FALSE ||
      IsWindowEnabled(GetAncestor(window_, GA_ROOT)) == FALSE) {
    return;
  }
  if (act == Act::kClickColumn) return list_.UserColumnClick(number);
  if (times_cleared != static_cast<WORD>(list_.TimesCleared())) return;
  if (act == Act::kSelectRows) return TakeSelection();
  ListItem* item = list_.Item(number);
  if (act == Act::kKeyboardMenu) {
    const MenuPlace place(MenuPlaceOf(number));
    return list_.UserContextMenu(item == list_.SelectedItem() ? nullptr : item);
  }
  if (act == Act::kContextMenu) {
    // The press of the button has selected the row already.
    return list_.UserContextMenu(item == list_.SelectedItem() ? nullptr : item);
  }
  if (item == nullptr) return;
  if (act == Act::kSelect) return list_.UserSelect(*item);
  if (act == Act::kCheck) return list_.UserToggle(*item);
  if (item == list_.SelectedItem()) list_.UserDoubleClick();
}

}  // namespace tidemark
