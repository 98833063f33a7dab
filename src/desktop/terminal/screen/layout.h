// Where the controls of a window stand in a terminal: the window's arrangement of rows and stacks,
// in character cells. Buttons flow in rows, texts take the lines they need, lists share what is
// left by their heights in the window.
#pragma once

#include <vector>

#include "desktop/terminal/screen/area.h"
#include "toolkit/controls.h"

namespace tidemark {

struct PlacedControl {
  Control* control = nullptr;
  Area area;
  int first_line = 0;  // of its text, at the top
};

struct Layout {
  std::vector<PlacedControl> controls;  // in reading order
  std::vector<Area> frames;             // of panels that lie over a list; what is in them follows
  std::size_t framed_from = 0;          // the first control in such a panel
  int most_scrolled = 0;                // how many lines of its texts can be scrolled away
};

// Controls that show nothing are left out. What does not fit is cut at the lower edge; lists grow
// no smaller than one row, texts become one line before that.
Layout LayOut(const Form& form, const Area& area);

// The same for a window of its own: where it has no list, texts that do not fit scroll above the
// buttons, by that many lines as far as there are.
Layout LayOutScrolled(const Form& form, const Area& area, int scrolled);

// In cells, for a window of its own: no wider than `widest`.
struct CellSize {
  int width = 0;
  int height = 0;
};
CellSize SizeOf(const Form& form, int widest);

// A label as it is shown in that width, one line after the other. The path that one which has but
// one line in the window shows is cut in its middle.
std::vector<std::string> LabelLines(const Label& label, int width);

}  // namespace tidemark
