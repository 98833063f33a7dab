// What the windows show as lines of text: as long as it gets, with a bounded number of rows of each
// list. The pieces of a page stand in reading order; the buttons that belong to no list gather
// below them, and the tray icon stands in the last line.
#pragma once

#include "desktop/terminal/desk.h"
#include "desktop/terminal/script/line.h"

namespace tidemark {

// The main window, and below it the dialog that is open.
Lines PrintDesk(Desk& desk, int width);

}  // namespace tidemark
