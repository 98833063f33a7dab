// What a person works with on the results page beside the procedures of the two lists: ticks of
// many findings at once, all of a finding's texts, what a repair would do.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Brings the page in line with what the scan has found: where there is nothing, it says so in the
// place of the lists.
void ShowResultTexts(frmMain& window);

// Shows the selected finding in full below the lists: key, value, reason.
void ShowSelectedProblem(frmMain& window);

// A finding was ticked or cleared; says beside "Repair" what that would do now.
void CountTick(frmMain& window, bool ticked);

// Opens the menu of both lists.
void ShowResultsMenu(frmMain& window);
// Of the test that is selected.
void mnuTickAll_Click(frmMain& window);
void mnuClearAll_Click(frmMain& window);
void mnuInvert_Click(frmMain& window);
// The selected rows as text, to the clipboard.
void mnuCopyRows_Click(frmMain& window);

}  // namespace tidemark
