// A control that paints itself on a canvas: the program's own progress bar.
#pragma once

#include "desktop/win32/gdi_text_painter.h"
#include "desktop/win32/painted_peer.h"
#include "toolkit/canvas_control.h"

namespace tidemark {

class CanvasPeer : public PaintedPeer {
 public:
  CanvasPeer(CanvasControl& control, Resources& resources, HWND parent);

  void Refresh() override;
  void Forget() override;
  void PaintOn(HDC context, const RECT& area) override;
  long Role() const override;

 private:
  CanvasControl& canvas_control_;
  GdiTextPainter text_painter_;
  std::uint64_t shown_version_ = 0;
};

}  // namespace tidemark
