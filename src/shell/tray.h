// The icon in the notification area: it is there while the program runs, and brings the window
// back.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Fills TrayData and adds the icon. A failure is not told.
void AddTrayIcon(frmMain& window);
void RemoveTrayIcon(frmMain& window);

// The mouse over the window's bare background. The icon's messages come the same way, their number
// in place of x in pixels; so the mouse at that many pixels acts as the icon does.
void Form_MouseMove(frmMain& window, int button, int shift, double x, double y);

// The icon's menu.
void mnuOpen_Click(frmMain& window);
void mnuAbout_Click(frmMain& window);
void mnuHelp_Click(frmMain& window);
void mnuTellafriend_Click(frmMain& window);

}  // namespace tidemark
