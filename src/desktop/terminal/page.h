// Draws what a window shows as lines of text, from its controls alone: it knows kinds of controls,
// not the pages of this program. Controls stand in the order of their places, from the top; buttons
// gather in the last line.
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
