// The platform's progress bar.
#pragma once

#include "desktop/win32/peer.h"
#include "toolkit/controls.h"

namespace tidemark {

class ProgressBarPeer : public Peer {
 public:
  ProgressBarPeer(ProgressBar& bar, Resources& resources, HWND parent);
  void Refresh() override;

 private:
  ProgressBar& bar_;
  int max_ = -1;
  int value_ = -1;
};

}  // namespace tidemark
