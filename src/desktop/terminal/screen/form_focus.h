// Where the keyboard is in a window, and where it goes.
#pragma once

#include <vector>

#include "desktop/terminal/screen/layout.h"

namespace tidemark {

// Those that the keyboard can reach now, in reading order.
std::vector<PlacedControl> Reachable(const Layout& layout);

std::vector<Control*> ControlsOf(const std::vector<PlacedControl>& placed);

enum class Direction { kUp, kDown, kLeft, kRight };

class FormFocus {
 public:
  // Gives the focus to another control if its own has gone: the one nearest to the former place on
  // the same panel, or the first one on another. Null when none can be reached.
  Control* Keep(const std::vector<PlacedControl>& reachable);
  void MoveTo(const PlacedControl& placed);
  void MoveByTab(const std::vector<PlacedControl>& reachable, bool back);
  // To the nearest control on that side, if there is one. Moving among option buttons chooses.
  void MoveByArrow(const std::vector<PlacedControl>& reachable, Direction direction);

 private:
  Control* focused_ = nullptr;  // looked at only where it is among the reachable ones
  const Control* panel_ = nullptr;
  Area area_;
};

}  // namespace tidemark
