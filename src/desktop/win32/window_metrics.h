// Where windows stand, and the measures of top-level ones at a number of dots per inch, on systems
// old and new.
#pragma once

#include "platform/winapi.h"

namespace tidemark {

RECT PlaceOnScreen(HWND window);
int DotsPerInchOf(HWND window);
// The size of a window with that client area, frame and caption included.
SIZE OuterSizeOf(SIZE client, DWORD style, DWORD extended_style, int dots_per_inch);
// The left top corner of a window of that size in the middle of an area, and inside the work area
// of the area's display.
POINT MiddleOf(const RECT& area, SIZE size);
// The work area of the display that a window stands on; of the first display for null.
RECT WorkAreaOf(HWND window);

}  // namespace tidemark
