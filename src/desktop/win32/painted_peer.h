// The base of the peers that paint their windows themselves, without flicker: labels, pictures,
// panels.
#pragma once

#include "desktop/win32/peer.h"

namespace tidemark {

class PaintedPeer : public Peer {
 public:
  using Peer::Peer;

  Answer OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;

  // Paints the whole window on a context whose origin is the window's left top corner.
  virtual void PaintOn(HDC context, const RECT& area) = 0;

 protected:
  // What lies behind the window: its parent's background and the painted siblings beneath.
  void PaintBeneath(HDC context);
  void Invalidate();
  // For screen readers; nothing is painted.
  void SetWindowTextQuietly(const Text& text);
};

}  // namespace tidemark
