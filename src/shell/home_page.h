// What Home offers beside its figures: the way to a scan that is running, and to its results.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Says which test a running scan is at, or that a repair runs, and goes on doing so while it does.
void ShowScanState(frmMain& window);

// The same, and whether the count can be clicked: it looks like a link then.
void ShowWaysFromHome(frmMain& window);

// The count of the last scan leads to what was found: the results, as long as none of it has been
// repaired or dropped, or the scan that is running.
void lblLastscan_Click(frmMain& window);

// What the health picture shows, for those who don't see it.
void NameHealth(frmMain& window);

}  // namespace tidemark
