#include "desktop/win32/progress_bar_peer.h"

// It wants the platform's headers before it.
#include <commctrl.h>

namespace tidemark {

ProgressBarPeer::ProgressBarPeer(ProgressBar& bar, Resources& resources, HWND parent)
    : Peer(bar, resources), bar_(bar) {
  CreateWindowOf(PROGRESS_CLASSA, 0, 0, parent);
}

void ProgressBarPeer::Refresh() {
  Peer::Refresh();
  if (!bar_.Visible()) return;
  if (max_ != bar_.Max()) {
    max_ = bar_.Max();
    SendMessageA(window_, PBM_SETRANGE32, 0, max_);
  }
  if (value_ != bar_.Value()) {
    value_ = bar_.Value();
    SendMessageA(window_, PBM_SETPOS, static_cast<WPARAM>(value_), 0);
  }
}

}  // namespace tidemark
