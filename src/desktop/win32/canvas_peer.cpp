#include "desktop/win32/canvas_peer.h"

#include "desktop/win32/gdi_objects.h"
// It wants the platform's headers before it.
#include <oleacc.h>

namespace tidemark {

CanvasPeer::CanvasPeer(CanvasControl& control, Resources& resources, HWND parent)
    : PaintedPeer(control, resources), canvas_control_(control), text_painter_(resources) {
  CreateWindowOf("STATIC", SS_NOTIFY, 0, parent);
}

void CanvasPeer::Refresh() {
  PaintedPeer::Refresh();
  if (!canvas_control_.Visible()) return;
  RECT area{};
  GetClientRect(window_, &area);
  canvas_control_.SetDisplay(
      {.dots_per_inch = resources_.DotsPerInch(), .text_painter = &text_painter_});
  canvas_control_.SetSize(area.right, area.bottom);
  if (shown_version_ == canvas_control_.PaintingVersion()) return;
  shown_version_ = canvas_control_.PaintingVersion();
  Invalidate();
}

void CanvasPeer::Forget() {
  PaintedPeer::Forget();
  shown_version_ = 0;
}

void CanvasPeer::PaintOn(HDC context, const RECT& /*area*/) {
  const Canvas& painting = canvas_control_.Painting();
  if (painting.Width() == 0 || painting.Height() == 0) return;
  const BITMAPINFO info = CanvasFormat(painting.Width(), painting.Height());
  SetDIBitsToDevice(
      context, 0, 0, static_cast<DWORD>(painting.Width()), static_cast<DWORD>(painting.Height()), 0,
      0, 0, static_cast<UINT>(painting.Height()), painting.Pixels().data(), &info, DIB_RGB_COLORS);
}

long CanvasPeer::Role() const { return ROLE_SYSTEM_PROGRESSBAR; }

}  // namespace tidemark
