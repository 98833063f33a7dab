// A scan, from the click to the results page.
#pragma once

#include <string_view>

#include "window/frmMain.h"

namespace tidemark {

// Scans by every diagnostic test that is checked in lvLocations, one after the other, shows the
// results page and stores the statistics. Returns when all of that is done; a stop ends the walks
// and no more.
void cmdScan_Click(frmMain& window);

// Why the test of that code is not run: what it would have to know is out of reach on this PC.
// Empty when it can be run.
std::string WhyUnknown(std::string_view code);

// Resets the bar and runs the walks of one test. A code that is no test's does nothing.
void ScanKey(frmMain& window, std::string_view code);

}  // namespace tidemark
