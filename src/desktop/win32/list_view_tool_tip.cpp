#include "desktop/win32/list_view_tool_tip.h"

#include <windowsx.h>

#include "platform/winapi.h"
#include "platform/windows/wide_text.h"
// It wants the platform's headers before it.
#include <commctrl.h>

namespace tidemark {
namespace {

constexpr std::size_t kMostBytes = 2000;  // more than a person reads in passing
constexpr std::size_t kLongestRun = 70;   // characters without a place to break the line
constexpr int kWidthAt96 = 480;
constexpr int kMarginAt96 = 12;  // what the platform leaves free beside a cell's text
constexpr int kShownMilliseconds = 30000;

// The platform breaks lines at blanks alone, and a path or a list of numbers has none: long runs
// are broken here, behind a separator where there is one in the run's second half.
std::wstring WithBreaks(std::wstring_view text) {
  std::wstring broken;
  std::size_t run = 0;
  for (std::size_t place = 0; place < text.size(); ++place) {
    broken += text[place];
    run = text[place] == L' ' || text[place] == L'\n' ? 0 : run + 1;
    const bool separator =
        std::wstring_view(L"\\/,;&").find(text[place]) != std::wstring_view::npos;
    if (run < kLongestRun && !(separator && run > kLongestRun / 2)) continue;
    broken += L"\r\n";
    run = 0;
  }
  return broken;
}

TOOLINFOW ToolOf(HWND list) {
  TOOLINFOW tool = {};
  tool.cbSize = sizeof(tool);
  tool.hwnd = list;
  tool.uId = 1;
  return tool;
}

}  // namespace

void ListViewToolTip::Create(HWND list_window) {
  list_window_ = list_window;
  // The platform's own tips would lie over these.
  const HWND former = ListView_SetToolTips(list_window, nullptr);
  if (former != nullptr) DestroyWindow(former);
  // It belongs to the list's top-level window, and goes with it.
  window_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                            WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT,
                            CW_USEDEFAULT, CW_USEDEFAULT, list_window, nullptr,
                            GetModuleHandleW(nullptr), nullptr);
  SendMessageW(window_, TTM_SETDELAYTIME, TTDT_AUTOPOP, kShownMilliseconds);
  TOOLINFOW tool = ToolOf(list_window);
  std::wstring nothing;
  tool.lpszText = nothing.data();
  SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

ListViewToolTip::Tip ListViewToolTip::TipAt(POINT point) const {
  LVHITTESTINFO hit = {};
  hit.pt = point;
  ListView_SubItemHitTest(list_window_, &hit);
  const ListItem* row = list_.Item(hit.iItem + 1);
  const int column = columns_.ColumnAt(hit.iSubItem);
  if (row == nullptr || column < 0) return {};
  Tip tip;
  if (row == list_.SelectedItem() && !list_.ToolTipText().empty()) {
    tip.text = list_.ToolTipText().View();
    ListView_GetItemRect(list_window_, hit.iItem, &tip.area, LVIR_BOUNDS);
    return tip;
  }
  tip.text = column == 0 ? row->Caption().View() : row->SubItem(column).View();
  const int part = hit.iSubItem == 0 ? LVIR_LABEL : LVIR_BOUNDS;
  ListView_GetSubItemRect(list_window_, hit.iItem, hit.iSubItem, part, &tip.area);
  if (Fits(tip.text, tip.area)) tip.text = {};
  return tip;
}

bool ListViewToolTip::Fits(std::string_view text, const RECT& cell) const {
  const std::wstring wide = Wide(text.substr(0, kMostBytes));
  const auto width = static_cast<int>(
      SendMessageW(list_window_, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(wide.c_str())));
  return width + resources_.Scaled(kMarginAt96) <= cell.right - cell.left;
}

void ListViewToolTip::Show(const Tip& tip) {
  if (EqualRect(&tip.area, &area_) != FALSE && text_ == tip.text) return;
  Hide();
  area_ = tip.area;
  text_ = tip.text;
  std::wstring lines = WithBreaks(Wide(tip.text.substr(0, kMostBytes)));
  if (tip.text.size() > kMostBytes) lines += L"...";
  TOOLINFOW tool = ToolOf(list_window_);
  tool.rect = area_;
  tool.lpszText = lines.data();
  SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, resources_.Scaled(kWidthAt96));
  SendMessageW(window_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageW(window_, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&tool));
}

void ListViewToolTip::Hide() { SendMessageW(window_, TTM_POP, 0, 0); }

void ListViewToolTip::OnMouse(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_MOUSEMOVE) Show(TipAt({GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)}));
  MSG relayed = {};
  relayed.hwnd = list_window_;
  relayed.message = message;
  relayed.wParam = wparam;
  relayed.lParam = lparam;
  SendMessageW(window_, TTM_RELAYEVENT, static_cast<WPARAM>(GetMessageExtraInfo()),
               reinterpret_cast<LPARAM>(&relayed));
}

}  // namespace tidemark
