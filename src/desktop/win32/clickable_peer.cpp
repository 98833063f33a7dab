#include "desktop/win32/clickable_peer.h"

#include "desktop/win32/colors.h"
// It wants the platform's headers before it.
#include <windowsx.h>

namespace tidemark {

ClickablePeer::ClickablePeer(ClickControl& control, Resources& resources, HWND parent)
    : PaintedPeer(control, resources),
      click_control_(control),
      clickable_(control.Clicked.IsBound()) {
  CreateWindowOf("STATIC", clickable_ ? SS_NOTIFY : 0, 0, parent);
}

Answer ClickablePeer::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  if (!clickable_) return PaintedPeer::OnMessage(message, wparam, lparam);
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      SetFocus(window_);
      SetCapture(window_);
      return 0;
    case WM_LBUTTONUP:
      return OnMouseUp(lparam);
    case WM_KEYDOWN:
      if (wparam != VK_SPACE) return {};
      blank_is_down_ = true;
      return 0;
    case WM_KEYUP:
      if (wparam != VK_SPACE || !blank_is_down_) return {};
      blank_is_down_ = false;
      Click();
      return 0;
    case WM_KILLFOCUS:
      blank_is_down_ = false;
      break;
    default:
      break;
  }
  return PaintedPeer::OnMessage(message, wparam, lparam);
}

// A press that is dragged off the window is no click.
Answer ClickablePeer::OnMouseUp(LPARAM lparam) {
  if (GetCapture() != window_) return 0;
  ReleaseCapture();
  RECT area{};
  GetClientRect(window_, &area);
  if (PtInRect(&area, {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)}) != FALSE) Click();
  return 0;
}

void ClickablePeer::OnAccessKey() {
  if (!clickable_) return;
  SetFocus(window_);
  Click();
}

bool ClickablePeer::OnEnter() {
  if (!clickable_) return false;
  Click();
  return true;
}

// Two lines, one of which stands out on any picture.
void ClickablePeer::PaintFocus(HDC context, const RECT& area) const {
  if (GetFocus() != window_ || !resources_.FocusIsShown()) return;
  RECT frame = area;
  for (const COLORREF color : {GetSysColor(COLOR_HIGHLIGHT), PanelColor()}) {
    for (int line = resources_.Scaled(1); line > 0; --line) {
      SetDCBrushColor(context, color);
      FrameRect(context, &frame, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
      InflateRect(&frame, -1, -1);
    }
  }
}

}  // namespace tidemark
