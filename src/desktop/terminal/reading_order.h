// In what order a person reads the controls of a container, by their places.
#pragma once

#include <vector>

#include "toolkit/control.h"

namespace tidemark {

// The controls of the container that can be seen, in reading order: bands from the top down, each
// from left to right; where lists stand side by side, what belongs to the left one comes first.
// Left out is what is hidden, what lies beyond the container's edge, and what lies wholly behind a
// list or a panel.
std::vector<Control*> InReadingOrder(const Control& container);

// Whether two controls stand in one line of a page: neither is much higher than the other, and each
// one's middle lies beside the other.
bool IsSameLine(const Control& left, const Control& right);

// Whether the two have a point in common.
bool Overlap(const Control& left, const Control& right);
// Whether some of one stands at the height of some of the other.
bool IsBeside(const Control& left, const Control& right);

// A list or a tree.
bool HasRows(const Control& control);

}  // namespace tidemark
