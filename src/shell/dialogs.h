// The about box and the question box.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Shows the about box, modeless.
void ShowAbout(frmMain& window);

// Makes the question box, its buttons bound, not yet shown: the caller sets caption, message and
// the buttons' Enabled and Visible, then shows it.
frmMessBox& NewMessBox(frmMain& window);

}  // namespace tidemark
