#include "shell/running_work.h"

#include "window/panels.h"

namespace tidemark {

void ShowRunningWork(frmMain& window) {
  if (window.ScanRunning) {
    window.lvScan.BringToFront();
  } else if (window.cmdStopFix.Visible()) {  // it is as long as the repair runs
    HideAllFrames(window);
    window.picClear.SetVisible(true);
  }
}

}  // namespace tidemark
