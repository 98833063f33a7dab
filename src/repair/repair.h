// The repair of all selected findings, and the ways to leave the results page.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Repairs every finding of lvInvalidLoc that is still selected, from first to last, and returns to
// the Home page. A stop ends it behind the finding in work.
void cmdFix_Click(frmMain& window);

// Drops the findings and leaves for the Home page.
void cmdCancel_Click(frmMain& window);

}  // namespace tidemark
