// The program's own push button: what the mouse and the keyboard do is passed on to it.
#pragma once

#include "controls/xpcmdbutton.h"
#include "desktop/win32/canvas_peer.h"

namespace tidemark {

class xpcmdbuttonPeer : public CanvasPeer {
 public:
  xpcmdbuttonPeer(xpcmdbutton& button, Resources& resources, HWND parent);

  void Refresh() override;
  Answer OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  bool TakesFocus() const override { return true; }
  Text AccessKeyText() const override;
  void OnAccessKey() override;
  bool OnEnter() override;
  long Role() const override;

 private:
  Answer OnMouse(UINT message, WPARAM wparam, LPARAM lparam);
  Answer OnKey(UINT message, WPARAM wparam);
  void OnTimer();

  xpcmdbutton& button_;
  bool timer_runs_ = false;
};

}  // namespace tidemark
