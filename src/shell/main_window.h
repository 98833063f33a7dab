// The life of the program and of its main window: from the process's start to the idle window, and
// the way out.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// The program's entry: applies the single-instance rule, shows the splash for 1500 milliseconds,
// shows the main window, opens the Scan page and scans. Returns when that scan has ended; the
// window then waits on the page that the scan left open. The handlers have to be bound before.
void Main(frmMain& window);

void Form_Load(frmMain& window);

// End the process at once, also in mid-scan: FrontEnd::End never returns.
void Form_Unload(frmMain& window);
void Form_Terminate(frmMain& window);

}  // namespace tidemark
