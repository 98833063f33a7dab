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
  void PaintHeadings(HDC context, RECT area) const;

  Label& label_;
  Text caption_;
  unsigned back_color_ = 0;
  unsigned fore_color_ = 0;
  int scrolled_pixels_ = 0;  // of the list that it heads
};

}  // namespace tidemark
