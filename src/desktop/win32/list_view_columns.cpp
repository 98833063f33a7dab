#include "desktop/win32/list_view_columns.h"

#include <algorithm>

#include "platform/winapi.h"
#include "platform/windows/wide_text.h"
// It wants the platform's headers before it.
#include <commctrl.h>

namespace tidemark {
namespace {

constexpr int kHeightAt96 = 24;
constexpr UINT_PTR kSubclass = 1;

}  // namespace

void ListViewColumns::Create(HWND list_window) {
  window_ = list_window;
  header_ = ListView_GetHeader(window_);
  SetWindowSubclass(header_, HeaderProcedure, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

ListViewColumns::~ListViewColumns() {
  if (header_ != nullptr) RemoveWindowSubclass(header_, HeaderProcedure, kSubclass);
}

LRESULT CALLBACK ListViewColumns::HeaderProcedure(HWND header, UINT message, WPARAM wparam,
                                                  LPARAM lparam, UINT_PTR /*id*/,
                                                  DWORD_PTR columns) {
  auto& self = *reinterpret_cast<ListViewColumns*>(columns);  // NOLINT(performance-no-int-to-ptr)
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(header, HeaderProcedure, kSubclass);
    self.header_ = nullptr;
  }
  const LRESULT answer = DefSubclassProc(header, message, wparam, lparam);
  // The headings get more room than the platform's older themes give them.
  if (message == HDM_LAYOUT && self.list_.headings) {
    const HDLAYOUT& layout =
        *reinterpret_cast<const HDLAYOUT*>(lparam);  // NOLINT(performance-no-int-to-ptr)
    layout.pwpos->cy = std::max(layout.pwpos->cy, self.resources_.Scaled(kHeightAt96));
    layout.prc->top = layout.pwpos->cy;
  }
  return answer;
}

std::vector<ListViewColumns::Shown> ListViewColumns::Wanted() const {
  std::vector<Shown> wanted;
  for (int column = 0; column < static_cast<int>(list_.columns.size()); ++column) {
    const ColumnHeader& header = list_.columns[static_cast<std::size_t>(column)];
    if (header.width_twips <= 0) continue;
    Shown& shown = wanted.emplace_back(Shown{column, header.text, header.width_twips, 0});
    if (!list_.Sorted() || list_.SortKey() != column) continue;
    shown.arrow = list_.Order() == SortOrder::kAscending ? HDF_SORTUP : HDF_SORTDOWN;
  }
  return wanted;
}

bool ListViewColumns::Show() {
  std::vector<Shown> wanted = Wanted();
  if (wanted == shown_) return false;
  const bool anew = !std::equal(
      wanted.begin(), wanted.end(), shown_.begin(), shown_.end(),
      [](const Shown& left, const Shown& right) { return left.column == right.column; });
  if (anew) {
    while (ListView_DeleteColumn(window_, 0) != FALSE) {
    }
    shown_.assign(wanted.size(), {});
  }
  for (std::size_t place = 0; place < wanted.size(); ++place) {
    Change(static_cast<int>(place), shown_[place], wanted[place]);
  }
  shown_ = std::move(wanted);
  shown_at_ = resources_.DotsPerInch();
  return anew;
}

void ListViewColumns::Change(int place, const Shown& from, const Shown& to) const {
  std::wstring text = Wide(to.text.View());
  LVCOLUMNW column = {};
  if (from.column != to.column || !(from.text == to.text)) column.mask |= LVCF_TEXT;
  if (from.width_twips != to.width_twips) column.mask |= LVCF_WIDTH;
  column.pszText = text.data();
  column.cx = resources_.Pixels(to.width_twips);
  if (list_.headings) column.cx = std::max(column.cx, WidthOfHeading(text));
  if (column.mask != 0) {
    const UINT message = from.column != to.column ? LVM_INSERTCOLUMNW : LVM_SETCOLUMNW;
    SendMessageW(window_, message, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(&column));
  }
  if (from.arrow != to.arrow) SetArrow(place, to.arrow);
}

// A heading is read whole, however narrow the texts below it may be.
int ListViewColumns::WidthOfHeading(const std::wstring& text) const {
  constexpr int kMarginAt96 = 16;
  return resources_.Scaled(kMarginAt96) +
         static_cast<int>(
             SendMessageW(window_, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text.c_str())));
}

void ListViewColumns::SetArrow(int place, int arrow) const {
  HDITEMW item = {};
  item.mask = HDI_FORMAT;
  SendMessageW(header_, HDM_GETITEMW, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(&item));
  item.fmt = (item.fmt & ~(HDF_SORTUP | HDF_SORTDOWN)) | arrow;
  SendMessageW(header_, HDM_SETITEMW, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(&item));
}

int ListViewColumns::ColumnAt(int place) const {
  return place < 0 || place >= Count() ? -1 : shown_[static_cast<std::size_t>(place)].column;
}

}  // namespace tidemark
