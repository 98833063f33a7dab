#include "desktop/win32/list_view_peer.h"

#include <uxtheme.h>

namespace tidemark {
namespace {

constexpr int kRowHeightAt96 = 17;

}  // namespace

ListViewPeer::ListViewPeer(ListView& list, Resources& resources, HWND parent)
    : Peer(list, resources),
      list_(list),
      columns_(list, resources),
      background_(list, resources),
      tool_tip_(list, columns_, resources) {
  CreateWindowOf(WC_LISTVIEWA,
                 WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS |
                     (list.multi_select ? 0U : LVS_SINGLESEL) |
                     (list.headings ? 0U : LVS_NOCOLUMNHEADER),
                 WS_EX_CLIENTEDGE, parent);
  // Texts go to it with 16-bit characters: of 8-bit ones it takes no more than 260 bytes.
  ListView_SetUnicodeFormat(window_, TRUE);
  ListView_SetExtendedListViewStyle(window_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
  ListView_SetCallbackMask(window_, LVIS_STATEIMAGEMASK);
  SetWindowTheme(window_, L"Explorer", nullptr);
  columns_.Create(window_);
  tool_tip_.Create(window_);
}

void ListViewPeer::Forget() {
  Peer::Forget();
  columns_.Forget();
  background_.Forget();
  snapshot_.Clear();
  style_shown_ = false;
  SendMessageW(window_, WM_SYSCOLORCHANGE, 0, 0);
}

void ListViewPeer::Refresh() {
  Peer::Refresh();
  if (window_ == nullptr) return;
  refreshing_ = true;
  ShowStyle();
  if (columns_.Show()) InvalidateRect(window_, nullptr, TRUE);
  background_.Show(window_);
  ShowRowCount();
  // The window is ahead of the control until what a person has done has become an event.
  if (acts_posted_ == 0) ShowSelection();
  ShowChangedRows();
  list_.scrolled_pixels = GetScrollPos(window_, SB_HORZ);
  refreshing_ = false;
}

void ListViewPeer::ShowStyle() {
  if (style_shown_ && check_boxes_ == list_.check_boxes && small_icons_ == list_.small_icons)
    return;
  // Switched off first, they are made anew in the size that the display's dots per inch ask for.
  ListView_SetExtendedListViewStyleEx(window_, LVS_EX_CHECKBOXES, 0);
  if (list_.check_boxes) {
    ListView_SetExtendedListViewStyleEx(window_, LVS_EX_CHECKBOXES, LVS_EX_CHECKBOXES);
  }
  // The window frees the image list that it has at its end.
  const HIMAGELIST former = ListView_SetImageList(window_, MakeIcons(), LVSIL_SMALL);
  if (former != nullptr) ImageList_Destroy(former);
  check_boxes_ = list_.check_boxes;
  small_icons_ = list_.small_icons;
  style_shown_ = true;
}

HIMAGELIST ListViewPeer::MakeIcons() {
  if (!list_.small_icons.empty()) {
    return ImageList_Duplicate(resources_.IconsOf(list_.small_icons));
  }
  // Nothing but the height of the rows, which the platform makes one pixel higher than the icons.
  return ImageList_Create(1, resources_.Scaled(kRowHeightAt96) - 1, ILC_COLOR32, 0, 1);
}

void ListViewPeer::ShowRowCount() {
  if (times_cleared_ != list_.TimesCleared()) {
    // Other rows: from the top, with nothing selected.
    times_cleared_ = list_.TimesCleared();
    snapshot_.Clear();
    followed_ = nullptr;
    selected_row_ = row_count_ = 0;
    selected_rows_.clear();
    view_known_ = false;
    ListView_SetItemCountEx(window_, 0, 0);
  }
  if (row_count_ == list_.Count()) return;
  view_known_ = false;
  const DWORD keep = list_.Count() > row_count_ ? LVSICF_NOINVALIDATEALL : 0;
  row_count_ = list_.Count();
  if (selected_row_ > row_count_) selected_row_ = 0;
  ListView_SetItemCountEx(window_, row_count_, LVSICF_NOSCROLL | keep);
  if (GetFocus() == window_) ShowFocus();
}

void ListViewPeer::ShowSelection() {
  const ListItem* selected = list_.SelectedItem();
  if (list_.multi_select) {
    ShowSelectedRows();
  } else if (selected != list_.Item(selected_row_)) {
    SelectInWindow(list_.IndexOf(selected));
  }
  if (list_.VisibleItem() == followed_) return;
  followed_ = list_.VisibleItem();
  const int row = list_.IndexOf(followed_);
  if (row != 0) ListView_EnsureVisible(window_, row - 1, FALSE);
}

void ListViewPeer::SelectInWindow(int row) {
  if (selected_row_ != 0) ListView_SetItemState(window_, selected_row_ - 1, 0, LVIS_SELECTED);
  selected_row_ = row;
  if (row == 0) return;
  constexpr UINT kSelected = LVIS_SELECTED | LVIS_FOCUSED;
  ListView_SetItemState(window_, row - 1, kSelected, kSelected);
}

void ListViewPeer::ShowSelectedRows() {
  if (selected_rows_ == list_.SelectedRows()) return;
  selected_rows_ = list_.SelectedRows();
  ListView_SetItemState(window_, -1, 0, LVIS_SELECTED);
  for (int row = 1; row <= list_.Count(); ++row) {
    const ListItem* item = list_.Item(row);
    if (!item->Selected()) continue;
    const UINT state = LVIS_SELECTED | (item == list_.SelectedItem() ? LVIS_FOCUSED : 0U);
    ListView_SetItemState(window_, row - 1, state, state);
  }
}

void ListViewPeer::ShowChangedRows() {
  if (!view_known_) {
    const int top = ListView_GetTopIndex(window_) + 1;
    // The last row may be in view in part.
    in_view_ = {top, top + ListView_GetCountPerPage(window_)};
    view_known_ = true;
  }
  const ListViewSnapshot::Range changed = snapshot_.Take(list_, in_view_);
  if (!changed.Empty()) ListView_RedrawItems(window_, changed.first - 1, changed.last - 1);
}

void ListViewPeer::ShowFocus() {
  if (list_.Count() == 0 || ListView_GetNextItem(window_, -1, LVNI_FOCUSED) >= 0) return;
  ListView_SetItemState(window_, 0, LVIS_FOCUSED, LVIS_FOCUSED);
}

}  // namespace tidemark
