// The page that holds the criteria and starts the scan.
#include "junk/junk.h"
#include "window/panels.h"

namespace tidemark {

void cmdCleanJunk_Click(frmMain& window) {
  HighLightButtons(window);
  HideAllFrames(window);
  window.picJunkCriteria.SetVisible(true);
  window.picJunkCriteria.BringToFront();
  ShowDrivesList(window);
}

void cmdJunkScan_Click(frmMain& window) {
  SaveDrives(window, window.tvDrives);
  ScanJunkFiles(window);
}

}  // namespace tidemark
