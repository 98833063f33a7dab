#include "toolkit/covering.h"

#include <algorithm>

#include "toolkit/controls.h"
#include "toolkit/list_view.h"
#include "toolkit/tree_view.h"

namespace tidemark {
namespace {

bool HidesWhatLiesBehind(const Control& control) {
  return control.Visible() && (dynamic_cast<const PictureBox*>(&control) != nullptr ||
                               dynamic_cast<const ListView*>(&control) != nullptr ||
                               dynamic_cast<const TreeView*>(&control) != nullptr);
}

bool Contains(const Bounds& outer, const Bounds& inner) {
  return outer.left <= inner.left && outer.top <= inner.top &&
         inner.left + inner.width <= outer.left + outer.width &&
         inner.top + inner.height <= outer.top + outer.height;
}

bool IsBehindSibling(const Control& control, const Bounds& place) {
  const auto& siblings = control.Container()->Controls();
  const auto here = std::find(siblings.begin(), siblings.end(), &control);
  return std::any_of(here + 1, siblings.end(), [&place](const Control* front) {
    return HidesWhatLiesBehind(*front) && Contains(front->Place(), place);
  });
}

}  // namespace

bool IsCovered(const Control& control) {
  Bounds place = control.Place();
  if (place.width <= 0 || place.height <= 0) return false;
  for (const Control* level = &control; level->Container() != nullptr; level = level->Container()) {
    if (IsBehindSibling(*level, place)) return true;
    place.left += level->Container()->Place().left;
    place.top += level->Container()->Place().top;
  }
  return false;
}

bool LiesOutside(const Control& control) {
  if (control.Container() == nullptr) return false;
  const Bounds& place = control.Place();
  const Bounds& area = control.Container()->Place();
  if (place.width <= 0 || place.height <= 0 || area.width <= 0 || area.height <= 0) return false;
  const int width = std::min(place.left + place.width, area.width) - std::max(place.left, 0);
  const int height = std::min(place.top + place.height, area.height) - std::max(place.top, 0);
  return width * 4 < place.width || height * 4 < place.height;
}

bool CanBeSeen(const Control& control) {
  for (const Control* level = &control; level != nullptr; level = level->Container()) {
    if (!level->Visible() || LiesOutside(*level)) return false;
  }
  return !IsCovered(control);
}

bool CanBeReached(const Control& control) {
  for (const Control* level = &control; level != nullptr; level = level->Container()) {
    if (!level->Enabled()) return false;
  }
  return CanBeSeen(control);
}

}  // namespace tidemark
