#include "desktop/win32/image_peer.h"

#include "desktop/win32/buffered_paint.h"
#include "desktop/win32/colors.h"
#include "desktop/win32/gdi_objects.h"
#include "platform/windows/wide_text.h"
// It wants the platform's headers before it.
#include <oleacc.h>

namespace tidemark {

ImagePeer::ImagePeer(ImageBox& image, Resources& resources, HWND parent)
    : ClickablePeer(image, resources, parent), image_(image) {}

// Click areas may lie over the picture and show it.
void ImagePeer::Refresh() {
  ClickablePeer::Refresh();
  if (!image_.Visible() || picture_file_ == image_.PictureFile()) return;
  picture_file_ = image_.PictureFile();
  RECT place{};
  GetWindowRect(window_, &place);
  MapWindowPoints(nullptr, GetParent(window_), reinterpret_cast<POINT*>(&place), 2);
  RedrawWindow(GetParent(window_), &place, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void ImagePeer::PaintOn(HDC context, const RECT& area) {
  const HBITMAP picture = resources_.PictureOf(picture_file_, area.right, area.bottom);
  if (picture != nullptr) {
    PaintBitmap(context, area, picture);
  } else {
    PaintBeneath(context);
    if (Clickable() || SystemColorsOnly()) PaintName(context, area);
  }
  PaintFocus(context, area);
}

// A button without its picture is still a button, and what a picture tells can be read instead.
void ImagePeer::PaintName(HDC context, const RECT& area) {
  const Selection font(context, resources_.FontOf(image_.Font()));
  // The page button whose page is up has a second picture.
  const bool is_up = Clickable() && picture_file_.ends_with("2.jpg");
  if (is_up) FillWith(context, area, GetSysColor(COLOR_HIGHLIGHT));
  SetTextColor(context, is_up ? GetSysColor(COLOR_HIGHLIGHTTEXT) : PanelTextColor());
  SetBkMode(context, TRANSPARENT);
  RECT place = area;
  const std::wstring name = Wide(image_.AccessibleName().View());
  DrawTextW(context, name.c_str(), static_cast<int>(name.size()), &place,
            DT_SINGLELINE | DT_CENTER | DT_VCENTER);
}

long ImagePeer::Role() const { return Clickable() ? ROLE_SYSTEM_PUSHBUTTON : ROLE_SYSTEM_GRAPHIC; }

}  // namespace tidemark
