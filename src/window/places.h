// Where the controls of the main window stand: the form's design data.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Places every control in its panel, in twips. Controls of one place lie over each other, and those
// beyond the form's client area are never seen.
void PlaceControls(frmMain& window);

}  // namespace tidemark
