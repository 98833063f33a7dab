// The about box and the question box.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Shows the about box, modeless.
void ShowAbout(frmMain& window);

// The question box: one that is still open, or a new one, not yet shown. The caller sets caption,
// message and the buttons' Enabled and Visible, then shows it.
frmMessBox& MessBox(frmMain& window);

}  // namespace tidemark
