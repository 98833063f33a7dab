#include "desktop/win32/panel_peer.h"

#include "desktop/win32/buffered_paint.h"
#include "desktop/win32/colors.h"

namespace tidemark {
namespace {

constexpr const char* kPanelClass = "TidemarkPanel";

const char* PanelClass() {
  static const ATOM registered = [] {
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = DefWindowProcA;
    window_class.hInstance = GetModuleHandleA(nullptr);
    window_class.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    window_class.lpszClassName = kPanelClass;
    return RegisterClassA(&window_class);
  }();
  static_cast<void>(registered);
  return kPanelClass;
}

}  // namespace

PanelPeer::PanelPeer(Control& control, Resources& resources, HWND parent)
    : PaintedPeer(control, resources), picture_box_(dynamic_cast<const PictureBox*>(&control)) {
  CreateWindowOf(PanelClass(), WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, parent);
}

void PanelPeer::Refresh() {
  PaintedPeer::Refresh();
  if (picture_box_ == nullptr) return;
  if (picture_file_ == picture_box_->PictureFile() &&
      border_style_ == picture_box_->BorderStyle()) {
    return;
  }
  picture_file_ = picture_box_->PictureFile();
  border_style_ = picture_box_->BorderStyle();
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

// Themed and transparent children have their background painted by this message.
Answer PanelPeer::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message != WM_ERASEBKGND) return PaintedPeer::OnMessage(message, wparam, lparam);
  RECT area{};
  GetClientRect(window_, &area);
  PaintOn(reinterpret_cast<HDC>(wparam), area);
  return 1;
}

void PanelPeer::PaintOn(HDC context, const RECT& area) {
  const HBITMAP picture = resources_.PictureOf(picture_file_, area.right, area.bottom);
  if (picture != nullptr) {
    PaintBitmap(context, area, picture);
  } else {
    FillWith(context, area, PanelColor());
  }
  if (border_style_ == 0) return;
  SetDCBrushColor(context, BorderColor());
  FrameRect(context, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

}  // namespace tidemark
