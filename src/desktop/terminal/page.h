// Draws what the windows show as lines of text. The pieces of a page stand in reading order; the
// buttons that belong to no list gather below them, and the tray icon stands in the last line.
#pragma once

#include "desktop/terminal/desk.h"
#include "desktop/terminal/styled_line.h"

namespace tidemark {

struct PageSize {
  int width = 100;
  int height = 0;  // 0: as long as it gets, with a bounded number of rows of each list
};

// The main window, and over it (below it, on a page without height) the dialog that is open.
Lines DrawDesk(Desk& desk, const PageSize& size);

}  // namespace tidemark
