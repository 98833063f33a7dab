// A label: a text, or a text-less area to click on what lies beneath.
#pragma once

#include "desktop/win32/clickable_peer.h"
#include "toolkit/controls.h"

namespace tidemark {

class LabelPeer : public ClickablePeer {
 public:
  LabelPeer(Label& label, Resources& resources, HWND parent);

  void Refresh() override;
  void PaintOn(HDC context, const RECT& area) override;
  long Role() const override;

 private:
  Label& label_;
  Text caption_;
  unsigned back_color_ = 0;
  unsigned fore_color_ = 0;
};

}  // namespace tidemark
