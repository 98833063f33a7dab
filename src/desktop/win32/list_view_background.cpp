#include "desktop/win32/list_view_background.h"

#include <uxtheme.h>
#include <vssym32.h>

#include "desktop/win32/colors.h"
#include "desktop/win32/gdi_objects.h"

namespace tidemark {
namespace {

constexpr int kTiled = 5;
constexpr int kPictureDotsPerInch = 192;

using UniqueBrush = UniqueHandle<GdiObjectPolicy<HBRUSH>>;

// Themes that have no look for a selected row leave its empty parts as they are when there is a
// picture behind the text.
bool ThemePaintsSelection(HWND window) {
  const HTHEME theme = OpenThemeData(window, VSCLASS_LISTVIEW);
  if (theme == nullptr) return false;
  const bool paints = IsThemePartDefined(theme, LVP_LISTITEM, 0) != FALSE;
  CloseThemeData(theme);
  return paints;
}

// Where the picture's left top corner lies: it begins beneath the headings and moves with the rows,
// for the platform scrolls by moving what has been painted.
POINT CornerOf(HWND window) {
  RECT row = {};
  if (ListView_GetItemRect(window, 0, &row, LVIR_BOUNDS) == FALSE) return {0, 0};
  RECT headings = {};
  GetClientRect(ListView_GetHeader(window), &headings);
  return {row.left, row.top - headings.bottom};
}

void PaintSelection(HWND window, const NMLVCUSTOMDRAW& drawing) {
  const auto row = static_cast<int>(drawing.nmcd.dwItemSpec);
  if (ListView_GetItemState(window, row, LVIS_SELECTED) == 0) return;
  RECT icon = {};
  RECT bounds = {};
  ListView_GetItemRect(window, row, &icon, LVIR_ICON);
  ListView_GetItemRect(window, row, &bounds, LVIR_BOUNDS);
  bounds.left = icon.right;
  const int color = GetFocus() == window ? COLOR_HIGHLIGHT : COLOR_BTNFACE;
  FillRect(drawing.nmcd.hdc, &bounds, GetSysColorBrush(color));
}

}  // namespace

// The program's pictures are drawn for twice the usual dots per inch.
int ListViewBackground::InWindow(LONG pixels) const {
  return MulDiv(static_cast<int>(pixels), resources_.DotsPerInch(), kPictureDotsPerInch);
}

void ListViewBackground::Show(HWND window) {
  if (shown_ && list_.PictureFile() == file_ && list_.PictureAlignment() == alignment_) return;
  const bool had_picture = picture_ != nullptr;
  shown_ = true;
  file_ = list_.PictureFile();
  alignment_ = list_.PictureAlignment();
  picture_ = nullptr;
  if (!file_.empty()) {
    const SIZE size = resources_.PictureSizeOf(file_);
    size_ = {InWindow(size.cx), InWindow(size.cy)};
    if (size_.cx > 0 && size_.cy > 0) picture_ = resources_.PictureOf(file_, size_.cx, size_.cy);
  }
  if (picture_ == nullptr && !had_picture) return;
  paints_selection_ = !ThemePaintsSelection(window);
  ListView_SetTextBkColor(window, picture_ == nullptr ? CLR_DEFAULT : CLR_NONE);
  InvalidateRect(window, nullptr, TRUE);
}

LRESULT ListViewBackground::OnCustomDraw(const NMLVCUSTOMDRAW& drawing) {
  if (picture_ == nullptr) return CDRF_DODEFAULT;
  const HWND window = drawing.nmcd.hdr.hwndFrom;
  if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) {
    Paint(window, drawing.nmcd.hdc);
    return paints_selection_ ? CDRF_NOTIFYITEMDRAW : CDRF_DODEFAULT;
  }
  if (drawing.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) PaintSelection(window, drawing);
  return CDRF_DODEFAULT;
}

void ListViewBackground::Paint(HWND window, HDC context) const {
  RECT area = {};
  GetClientRect(window, &area);
  const POINT corner = CornerOf(window);
  const UniqueBrush brush(CreatePatternBrush(picture_));
  if (!brush) return;
  if (alignment_ != kTiled) {
    area = {corner.x, corner.y, corner.x + size_.cx, corner.y + size_.cy};
  }
  POINT former = {};
  SetBrushOrgEx(context, corner.x, corner.y, &former);
  FillRect(context, &area, brush.Get());
  SetBrushOrgEx(context, former.x, former.y, nullptr);
}

}  // namespace tidemark
