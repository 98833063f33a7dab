// Keys in a text box.
#pragma once

#include "desktop/terminal/screen/curses_screen.h"
#include "toolkit/text_box.h"

namespace tidemark {

// False: the key is none that a text box takes.
bool EditText(TextBox& box, const ScreenInput& input);

}  // namespace tidemark
