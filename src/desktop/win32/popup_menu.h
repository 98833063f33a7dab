// Shows a menu of the toolkit as a popup menu of the platform.
#pragma once

#include "platform/winapi.h"
#include "toolkit/menu.h"

namespace tidemark {

// Pops the menu up at the mouse, or at a point of the screen, and returns when it is closed. The
// item that was chosen has been clicked then, as the last act: the menu may be gone. Invisible
// items are left out. The owner is brought to the front, without which the menu of a tray icon
// would not close when the person clicks elsewhere.
void PopUp(HWND owner, Menu& menu);
void PopUp(HWND owner, Menu& menu, POINT point);

}  // namespace tidemark
