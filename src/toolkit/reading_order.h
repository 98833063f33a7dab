// How the controls of a container stand to each other, and in what order a person reads them, by
// their places.
#pragma once

#include <functional>
#include <vector>

#include "toolkit/control.h"

namespace tidemark {

// A control, or parts that stand above or beside each other, in reading order.
struct Arrangement {
  enum class Kind { kControl, kStack, kRow };
  Kind kind = Kind::kStack;
  Control* control = nullptr;  // of a kControl
  std::vector<Arrangement> parts;
};

// The controls of the container that can be seen: bands from the top down, each from left to right;
// where lists stand side by side, what belongs to the left one comes first. Left out is what is
// hidden, what lies beyond the container's edge, and what lies wholly behind a list or a panel.
// What is in the controls themselves is not looked at. Only controls that `counts` says yes to are
// looked at; all without it.
Arrangement ArrangementOf(const Control& container,
                          const std::function<bool(const Control&)>& counts = {});

// The same, one after the other.
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
// Whether the panel lies over a list, as a small window in front of it.
bool CoversList(const Control& panel);

}  // namespace tidemark
