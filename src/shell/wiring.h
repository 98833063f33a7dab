// The only place where a handler is bound to a control.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Binds every handler of the main window. The window has to outlive its events.
void BindHandlers(frmMain& window);

}  // namespace tidemark
