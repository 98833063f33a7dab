// A container of controls: a picture box, or a control made of others.
#pragma once

#include "desktop/win32/painted_peer.h"
#include "toolkit/controls.h"

namespace tidemark {

class PanelPeer : public PaintedPeer {
 public:
  PanelPeer(Control& control, Resources& resources, HWND parent);

  void Refresh() override;
  Answer OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
  void PaintOn(HDC context, const RECT& area) override;

 private:
  const PictureBox* picture_box_;  // null: neither border nor picture
  std::string picture_file_;
  int border_style_ = 0;
};

}  // namespace tidemark
