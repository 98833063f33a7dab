// A short film while work goes on; nothing is seen of it otherwise.
#pragma once

#include "desktop/win32/painted_peer.h"
#include "toolkit/controls.h"

namespace tidemark {

class AnimationPeer : public PaintedPeer {
 public:
  AnimationPeer(Animation& animation, Resources& resources, HWND parent);

  void Refresh() override;
  Answer OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  void PaintOn(HDC context, const RECT& area) override;
  long Role() const override;

 private:
  int FrameCount();

  Animation& animation_;
  bool playing_ = false;
  int frame_ = 0;
  std::string counted_file_;
  int frame_count_ = 0;
};

}  // namespace tidemark
