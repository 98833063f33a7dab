// The pieces that a page is made of, taken from a window's controls in reading order: lines of
// text, lists that get their lines when it is known how much room they have, and buttons. It knows
// kinds of controls, not the pages of this program.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desktop/terminal/rows.h"
#include "desktop/terminal/script/line.h"
#include "toolkit/controls.h"

namespace tidemark {

// A button or a tab in a row of such.
struct Chip {
  Line full;
  Line brief;         // where there is no room, or behind another member of its control group
  std::string group;  // the name of its control group; empty when it is in none
};

// As many in a line as fit into the width. In `all_brief` none is shown in full.
Lines InRows(const std::vector<Chip>& chips, int width, bool all_brief = false);

struct Sketch;

// One of lines, list, chips and panel.
struct Block {
  Lines lines;
  std::unique_ptr<Rows> list;
  std::vector<Chip> chips;
  std::unique_ptr<Sketch> panel;  // lies in front of a list and gets a frame
  const Control* text = nullptr;  // of whose lines it is; joins other texts of its line
};

struct Sketch {
  std::vector<Block> blocks;
  std::vector<Chip> page_buttons;  // pictures on the window itself that are buttons
  std::vector<Chip> buttons;       // all that belong to no list
};

Sketch MakeSketch(const Form& form, int width);

}  // namespace tidemark
