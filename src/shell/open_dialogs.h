// The about box, the help and the question box.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Both are modeless.
void ShowAbout(frmMain& window);
void ShowHelp(frmMain& window);

// The question box: one that is still open, or a new one, not yet shown. The caller sets caption,
// message and the buttons' Enabled and Visible, then shows it.
frmMessBox& MessBox(frmMain& window);

}  // namespace tidemark
