// Shows a menu of the toolkit as a popup menu of the platform.
#pragma once

#include "platform/winapi.h"
#include "toolkit/menu.h"

namespace tidemark {

// As long as one lives, the next menu that would pop up at the mouse does so at a point of the
// screen: where the keyboard asks for a menu, the mouse may be anywhere.
class MenuPlace {
 public:
  explicit MenuPlace(POINT point);
  ~MenuPlace();
  MenuPlace(const MenuPlace&) = delete;
  MenuPlace& operator=(const MenuPlace&) = delete;
};

// Pops the menu up at the mouse, or at a point of the screen, and returns when it is closed. The
// item that was chosen has been clicked then, as the last act: the menu may be gone. Invisible
// items are left out. The owner is brought to the front, without which the menu of a tray icon
// would not close when the person clicks elsewhere.
void PopUp(HWND owner, Menu& menu);
void PopUp(HWND owner, Menu& menu, POINT point);

}  // namespace tidemark
