// The user's choice of diagnostic tests: the check list on the Scan page and its stored form.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Fills lvLocations from the table of tests and the stored choice. A stored choice with another
// number of entries than there are tests counts as all checked.
void LoadLocations(frmMain& window);

// Says beside each test that is not run why; what is ticked stays ticked.
void ShowUnknownTests(frmMain& window);

// Stores the names and descriptions, which nothing reads back, and the choice.
void SaveLocations(frmMain& window);

// Checks or clears all tests, by the box's value, and stores both.
void chkSelectAll_Click(frmMain& window);

}  // namespace tidemark
