// The base of the peers of labels and pictures. One that has a handler for clicks is a button: the
// keyboard reaches it, it shows the focus, and Enter, the blank and its access key click it.
#pragma once

#include "desktop/win32/painted_peer.h"

namespace tidemark {

class ClickablePeer : public PaintedPeer {
 public:
  ClickablePeer(ClickControl& control, Resources& resources, HWND parent);

  Answer OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  bool TakesFocus() const override { return clickable_; }
  void OnAccessKey() override;
  bool OnEnter() override;

 protected:
  bool Clickable() const { return clickable_; }
  // On top of the painting.
  void PaintFocus(HDC context, const RECT& area) const;

 private:
  Answer OnMouseUp(LPARAM lparam);
  void Click() { click_control_.Click(); }

  ClickControl& click_control_;
  bool clickable_;
  bool blank_is_down_ = false;
};

}  // namespace tidemark
