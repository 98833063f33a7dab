// The page changes of the main window.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

void cmdMenuHome_Click(frmMain& window);
// Comes back in its progress form while a scan runs, and else reset for a new selection.
void cmdMenuScan_Click(frmMain& window);
void cmdMenuBackups_Click(frmMain& window);
void cmdMenuAdvanced_Click(frmMain& window);

// The tabs of Advanced and Backups: 0 options, 1 backups, 2 startup programs. Index 3 is no tab: it
// opens the tell-a-friend page, and nothing else changes.
void lblOptions_Click(frmMain& window, int index);
void imgtoolbar_Click(frmMain& window, int index);

// Opens the Scan page and runs a scan.
void cmdScanNow_Click(frmMain& window);
void cmdBack_Click(frmMain& window);
void cmdFinish_Click(frmMain& window);
// Ask a running scan, or a repair, to stop; it does so at its next test.
void cmdStop_Click(frmMain& window);
void cmdStopFix_Click(frmMain& window);
void cmdTellaFriend_Click(frmMain& window);

}  // namespace tidemark
