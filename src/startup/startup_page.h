// What the start-up page says of its entries beside the columns: where each comes from, which are
// broken, which one is this program's own, and what can be done with the selected one.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// After the list was filled: the pictures and the sources of its rows.
void MarkPrograms(frmMain& window);

// For the selected row, or none: the line and the buttons below the list.
void ShowSelectedProgram(frmMain& window);

}  // namespace tidemark
