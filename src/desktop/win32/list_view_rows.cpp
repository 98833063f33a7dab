// What a list's window asks for: texts, check marks and icons of the rows in view, the row that
// begins as a person types, and what is painted besides the rows.
#include <algorithm>
#include <string_view>
#include <utility>

#include "desktop/win32/gdi_objects.h"
#include "desktop/win32/list_view_peer.h"
#include "platform/letter_case.h"
#include "platform/windows/wide_text.h"

namespace tidemark {
namespace {

// More than fits on any display; a value of the registry can have a million characters.
constexpr std::size_t kMostBytes = 1024;

}  // namespace

void ListViewPeer::TellRow(LVITEMW& item) {
  const ListItem* row = list_.Item(item.iItem + 1);
  if (row != nullptr) snapshot_.NoteAsked(*row, item.iItem + 1);
  if ((item.mask & LVIF_TEXT) != 0) TellText(row, item);
  if ((item.mask & LVIF_IMAGE) != 0) {
    item.iImage = row != nullptr && row->SmallIcon() > 0 ? row->SmallIcon() - 1 : I_IMAGENONE;
  }
  if ((item.mask & LVIF_STATE) != 0 && list_.check_boxes) {
    // Pictures of the platform's check boxes: 1 is clear, 2 ticked.
    item.state = INDEXTOSTATEIMAGEMASK(row != nullptr && row->Checked() ? 2U : 1U);
  }
}

void ListViewPeer::TellText(const ListItem* row, LVITEMW& item) {
  const int column = columns_.ColumnAt(item.iSubItem);
  std::string_view text;
  if (row != nullptr && column == 0) text = row->Caption().View();
  if (row != nullptr && column > 0) text = row->SubItem(column).View();
  std::wstring told = Wide(text.substr(0, kMostBytes));
  if (painting_ != nullptr) told = Shortened(std::move(told), item.iSubItem);
  if (static_cast<int>(told.size()) < item.cchTextMax) {
    std::copy_n(told.c_str(), told.size() + 1, item.pszText);
  } else {
    long_text_ = std::move(told);
    item.pszText = long_text_.data();
  }
}

std::wstring ListViewPeer::Shortened(std::wstring text, int place) const {
  constexpr int kMarginAt96 = 12;  // what the platform leaves free beside a cell's text
  const std::size_t size = text.size();
  if (text.find(L'\\') == std::wstring::npos) return text;
  RECT cell{};
  ListView_GetSubItemRect(window_, 0, place, place == 0 ? LVIR_LABEL : LVIR_BOUNDS, &cell);
  const int room = cell.right - cell.left - resources_.Scaled(kMarginAt96);
  const Selection font(painting_, reinterpret_cast<HGDIOBJ>(  // NOLINT(performance-no-int-to-ptr)
                                      SendMessageW(window_, WM_GETFONT, 0, 0)));
  std::vector<int> ends(size);  // where each character ends, in pixels
  SIZE all{};
  SIZE dots{};
  GetTextExtentExPointW(painting_, text.c_str(), static_cast<int>(size), 0, nullptr, ends.data(),
                        &all);
  GetTextExtentPoint32W(painting_, L"\x2026", 1, &dots);
  if (all.cx <= room || room <= 3 * dots.cx) return text;
  const auto from = std::upper_bound(ends.begin(), ends.end(), room / 3);
  const int kept = from == ends.begin() ? 0 : *(from - 1);
  const auto to = std::lower_bound(from, ends.end(), all.cx - (room - kept - dots.cx));
  if (to == ends.end()) return text;
  return text.substr(0, static_cast<std::size_t>(from - ends.begin())) + L'\x2026' +
         text.substr(static_cast<std::size_t>(to - ends.begin()) + 1);
}

int ListViewPeer::FindRow(const NMLVFINDITEMW& search) const {
  const int count = list_.Count();
  if ((search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || search.lvfi.psz == nullptr) {
    return -1;
  }
  const std::string typed = Narrow(search.lvfi.psz);
  for (int step = 0; step < count; ++step) {
    const int index = (search.iStart + step) % count;
    const ListItem* row = list_.Item(index + 1);
    if (row == nullptr) return -1;
    const std::string_view start = row->Caption().View().substr(0, typed.size());
    if (CompareIgnoringCase(start, typed) == 0) return index;
  }
  return -1;
}

// The platform shows the focus on a row; an empty list shows it too.
LRESULT ListViewPeer::OnCustomDraw(const NMLVCUSTOMDRAW& drawing) {
  const LRESULT answer = background_.OnCustomDraw(drawing);
  if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) {
    painting_ = drawing.nmcd.hdc;
    return answer | CDRF_NOTIFYPOSTPAINT;
  }
  if (drawing.nmcd.dwDrawStage == CDDS_POSTPAINT) painting_ = nullptr;
  if (row_count_ != 0 || GetFocus() != window_) return answer;
  if (drawing.nmcd.dwDrawStage != CDDS_POSTPAINT) return answer;
  if ((SendMessageW(window_, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) != 0) return answer;
  RECT headings = {};
  RECT area = {};
  GetClientRect(ListView_GetHeader(window_), &headings);
  GetClientRect(window_, &area);
  area.top = headings.bottom;
  DrawFocusRect(drawing.nmcd.hdc, &area);
  return answer;
}

}  // namespace tidemark
