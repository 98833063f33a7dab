// The way back to work that goes on while a person looks at other pages.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Behind the Scan page's button: brings a running scan's status list to the front of the list of
// tests, and leads to the results page and its Stop while a repair runs. With neither nothing is
// done.
void ShowRunningWork(frmMain& window);

}  // namespace tidemark
