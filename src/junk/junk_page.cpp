// The page that holds the criteria and starts the scan.
#include "junk/junk.h"
#include "window/panels.h"

namespace tidemark {

void cmdCleanJunk_Click(frmMain& window) {
  HighLightButtons(window);
  // It is entered from Home and has no page button of its own.
  LoadProgramPicture(window, window.cmdMenuHome, "\\images\\overview2.jpg");
  HideAllFrames(window);
  window.picJunkCriteria.SetVisible(true);
  window.picJunkCriteria.BringToFront();
  if (window.JunkScanRunning || window.lvJunkFiles.Count() > 0) ShowJunkScan(window);
  // The running scan walks the list of drives.
  if (!window.JunkScanRunning) ShowDrivesList(window);
}

void cmdJunkScan_Click(frmMain& window) {
  SaveDrives(window, window.tvDrives);
  window.lblJunkTicked.SetCaption("");
  ScanJunkFiles(window);
  ShowTickedFiles(window);
}

}  // namespace tidemark
