#include "desktop/terminal/screen/form_focus.h"

#include <algorithm>

#include "desktop/terminal/control_face.h"
#include "toolkit/covering.h"
#include "toolkit/focus.h"
#include "toolkit/menu.h"
#include "toolkit/option_button.h"
#include "toolkit/reading_order.h"
#include "toolkit/text_box.h"

namespace tidemark {
namespace {

bool TakesFocus(const Control& control) {
  if (HasRows(control) || dynamic_cast<const TextBox*>(&control) != nullptr) return true;
  if (const auto* item = dynamic_cast<const MenuItem*>(&control)) return !item->IsSeparator();
  if (ButtonCaption(control) || !MarkOf(control).empty()) return true;
  const auto* click_control = dynamic_cast<const ClickControl*>(&control);
  return click_control != nullptr && click_control->Clicked.IsBound();
}

using Reached = std::vector<PlacedControl>;

Reached::const_iterator Find(const Reached& reachable, const Control* control) {
  return std::find_if(reachable.begin(), reachable.end(),
                      [control](const PlacedControl& placed) { return placed.control == control; });
}

// How far one stretch lies beside another; 0 when they touch.
int Apart(int first, int size, int other, int other_size) {
  return std::max({0, first - (other + other_size), other - (first + size)});
}

int DistanceOf(const Area& left, const Area& right) {
  // A cell is about twice as high as wide.
  return 2 * Apart(left.row, left.height, right.row, right.height) +
         Apart(left.column, left.width, right.column, right.width);
}

// How much the way from one to the other costs in that direction; negative: it does not lie there.
int CostOf(const Area& from, const Area& to, Direction direction) {
  constexpr int kAcross = 1000;  // first the nearest line, then the nearest in it
  const bool vertical = direction == Direction::kUp || direction == Direction::kDown;
  int ahead = 0;
  switch (direction) {
    case Direction::kUp:
      ahead = from.row - (to.row + to.height);
      break;
    case Direction::kDown:
      ahead = to.row - (from.row + from.height);
      break;
    case Direction::kLeft:
      ahead = from.column - (to.column + to.width);
      break;
    case Direction::kRight:
      ahead = to.column - (from.column + from.width);
      break;
  }
  if (ahead < 0) return -1;
  if (vertical) return ahead * kAcross + Apart(from.column, from.width, to.column, to.width);
  const bool beside = to.row < from.row + from.height && from.row < to.row + to.height;
  return beside ? ahead * kAcross + std::abs(to.row - from.row) : -1;
}

}  // namespace

std::vector<PlacedControl> Reachable(const Layout& layout) {
  Reached reachable = layout.controls;
  std::erase_if(reachable, [](const PlacedControl& placed) {
    return !TakesFocus(*placed.control) || !CanBeReached(*placed.control);
  });
  return reachable;
}

std::vector<Control*> ControlsOf(const Reached& placed) {
  std::vector<Control*> controls;
  for (const PlacedControl& each : placed) controls.push_back(each.control);
  return controls;
}

Control* FormFocus::Keep(const Reached& reachable) {
  if (reachable.empty()) return nullptr;
  auto here = Find(reachable, focused_);
  if (here == reachable.end()) {
    Reached neighbours = reachable;
    std::erase_if(neighbours, [this](const PlacedControl& placed) {
      return placed.control->Container() != panel_;
    });
    const auto nearest =
        std::min_element(neighbours.begin(), neighbours.end(),
                         [this](const PlacedControl& left, const PlacedControl& right) {
                           return DistanceOf(left.area, area_) < DistanceOf(right.area, area_);
                         });
    if (nearest != neighbours.end()) {
      focused_ = nearest->control;
    } else {
      focused_ = &FirstFocus(ControlsOf(reachable));
    }
    here = Find(reachable, focused_);
  }
  MoveTo(*here);
  return focused_;
}

void FormFocus::MoveTo(const PlacedControl& placed) {
  focused_ = placed.control;
  panel_ = focused_->Container();
  area_ = placed.area;
}

void FormFocus::MoveByTab(const Reached& reachable, bool back) {
  Reached stops = reachable;
  std::erase_if(stops, [this](const PlacedControl& placed) {
    return !IsTabStop(*placed.control) && placed.control != focused_;
  });
  if (stops.empty()) return;
  if (back) std::reverse(stops.begin(), stops.end());
  const auto here = Find(stops, focused_);
  const bool at_end = here == stops.end() || here + 1 == stops.end();
  MoveTo(at_end ? stops.front() : *(here + 1));
}

void FormFocus::MoveByArrow(const Reached& reachable, Direction direction) {
  const auto here = Find(reachable, focused_);
  if (here == reachable.end()) return;
  const PlacedControl* nearest = nullptr;
  int least = 0;
  for (const PlacedControl& placed : reachable) {
    const int cost = CostOf(here->area, placed.area, direction);
    if (cost < 0 || (nearest != nullptr && cost >= least)) continue;
    nearest = &placed;
    least = cost;
  }
  if (nearest == nullptr) return;
  const Control* former = focused_;
  MoveTo(*nearest);
  auto* option = dynamic_cast<OptionButton*>(nearest->control);
  if (option != nullptr && InOneGroup(*former, *option)) option->Click();
}

}  // namespace tidemark
