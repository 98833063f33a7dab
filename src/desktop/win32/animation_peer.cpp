#include "desktop/win32/animation_peer.h"

#include <algorithm>

#include "desktop/win32/gdi_objects.h"
// It wants the platform's headers before it.
#include <oleacc.h>

namespace tidemark {
namespace {

constexpr UINT_PTR kTimer = 1;
constexpr UINT kFramePause_ms = 100;

}  // namespace

AnimationPeer::AnimationPeer(Animation& animation, Resources& resources, HWND parent)
    : PaintedPeer(animation, resources), animation_(animation) {
  CreateWindowOf("STATIC", 0, 0, parent);
}

void AnimationPeer::Refresh() {
  PaintedPeer::Refresh();
  if (playing_ == animation_.Playing()) return;
  playing_ = animation_.Playing();
  frame_ = 0;
  if (playing_) {
    SetTimer(window_, kTimer, kFramePause_ms, nullptr);
  } else {
    KillTimer(window_, kTimer);
  }
  Invalidate();
}

Answer AnimationPeer::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message != WM_TIMER) return PaintedPeer::OnMessage(message, wparam, lparam);
  if (!animation_.Playing()) {
    // A page that has gone is not refreshed.
    KillTimer(window_, kTimer);
    playing_ = false;
  }
  ++frame_;
  Invalidate();
  return 0;
}

void AnimationPeer::PaintOn(HDC context, const RECT& area) {
  PaintBeneath(context);
  const int frames = FrameCount();
  if (!playing_ || frames == 0) return;
  const int size = std::min(area.right, area.bottom);
  const HBITMAP strip = resources_.PictureOf(counted_file_, frames * size, size);
  if (strip == nullptr) return;
  const UniqueMemoryContext source(CreateCompatibleDC(context));
  const Selection selection(source.Get(), strip);
  BitBlt(context, 0, 0, size, size, source.Get(), frame_ % frames * size, 0, SRCCOPY);
}

// The strip's frames are square.
int AnimationPeer::FrameCount() {
  if (counted_file_ == animation_.PictureFile()) return frame_count_;
  counted_file_ = animation_.PictureFile();
  const SIZE strip = resources_.PictureSizeOf(counted_file_);
  frame_count_ = strip.cy > 0 ? static_cast<int>(strip.cx / strip.cy) : 0;
  return frame_count_;
}

long AnimationPeer::Role() const { return ROLE_SYSTEM_ANIMATION; }

}  // namespace tidemark
