#include "desktop/win32/painted_peer.h"

#include "desktop/win32/buffered_paint.h"

namespace tidemark {
namespace {

RECT PlaceInParent(HWND window, HWND parent) {
  RECT place{};
  GetWindowRect(window, &place);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

// Moves the origin of a context for as long as it lives.
class MovedOrigin {
 public:
  MovedOrigin(HDC context, int x, int y) : context_(context) {
    OffsetViewportOrgEx(context_, x, y, &former_);
  }
  ~MovedOrigin() { SetViewportOrgEx(context_, former_.x, former_.y, nullptr); }
  MovedOrigin(const MovedOrigin&) = delete;
  MovedOrigin& operator=(const MovedOrigin&) = delete;

 private:
  HDC context_;
  POINT former_{};
};

}  // namespace

Answer PaintedPeer::OnMessage(UINT message, WPARAM wparam, LPARAM /*lparam*/) {
  switch (message) {
    case WM_PAINT: {
      const BufferedPaint paint(window_);
      PaintOn(paint.Context(), paint.Area());
      return 0;
    }
    case WM_PRINTCLIENT: {
      RECT area{};
      GetClientRect(window_, &area);
      PaintOn(reinterpret_cast<HDC>(wparam), area);
      return 0;
    }
    case WM_ERASEBKGND:
      return 1;
    case WM_ENABLE:
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      Invalidate();
      return 0;
    default:
      return {};
  }
}

void PaintedPeer::PaintBeneath(HDC context) {
  const HWND parent = GetParent(window_);
  const RECT mine = PlaceInParent(window_, parent);
  {
    const MovedOrigin origin(context, -mine.left, -mine.top);
    SendMessageA(parent, WM_ERASEBKGND, reinterpret_cast<WPARAM>(context), 0);
  }
  // From the rearmost on.
  for (HWND sibling = GetWindow(window_, GW_HWNDLAST); sibling != nullptr && sibling != window_;
       sibling = GetWindow(sibling, GW_HWNDPREV)) {
    auto* peer = dynamic_cast<PaintedPeer*>(Peer::Of(sibling));
    const RECT place = PlaceInParent(sibling, parent);
    RECT common{};
    if (peer == nullptr || IsWindowVisible(sibling) == FALSE ||
        IntersectRect(&common, &place, &mine) == FALSE) {
      continue;
    }
    const MovedOrigin origin(context, place.left - mine.left, place.top - mine.top);
    peer->PaintOn(context, {0, 0, place.right - place.left, place.bottom - place.top});
  }
}

void PaintedPeer::Invalidate() {
  if (window_ != nullptr) InvalidateRect(window_, nullptr, FALSE);
}

// The class's own procedure would paint at once.
void PaintedPeer::SetWindowTextQuietly(const Text& text) {
  DefWindowProcA(window_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.String().c_str()));
}

}  // namespace tidemark
