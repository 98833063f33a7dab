#include "desktop/terminal/reading_order.h"

#include <algorithm>

#include "toolkit/controls.h"
#include "toolkit/covering.h"
#include "toolkit/list_view.h"
#include "toolkit/tree_view.h"

namespace tidemark {
namespace {

using Group = std::vector<Control*>;

int Right(const Bounds& place) { return place.left + place.width; }
int Bottom(const Bounds& place) { return place.top + place.height; }

bool HasPlace(const Control& control) {
  return control.Place().width > 0 && control.Place().height > 0;
}

// Cuts the group where nothing crosses a straight line: `begin` and `end` are a control's edges
// along one axis.
template <class Begin, class End>
std::vector<Group> Cut(Group group, Begin begin, End end) {
  std::stable_sort(group.begin(), group.end(), [&](const Control* left, const Control* right) {
    return begin(left->Place()) < begin(right->Place());
  });
  std::vector<Group> parts;
  int reached = 0;
  for (Control* control : group) {
    if (parts.empty() || begin(control->Place()) >= reached) {
      parts.emplace_back();
      reached = end(control->Place());
    }
    parts.back().push_back(control);
    reached = std::max(reached, end(control->Place()));
  }
  return parts;
}

std::vector<Group> Columns(const Group& group) {
  return Cut(
      group, [](const Bounds& place) { return place.left; }, Right);
}

std::vector<Group> Bands(const Group& group) {
  return Cut(
      group, [](const Bounds& place) { return place.top; }, Bottom);
}

bool HasLists(const Group& group) {
  return std::any_of(group.begin(), group.end(), [](const Control* c) { return HasRows(*c); });
}

void Arrange(const Group& group, Group& order) {
  std::vector<Group> parts = Columns(group);
  if (std::count_if(parts.begin(), parts.end(), HasLists) < 2) {
    const std::vector<Group> bands = Bands(group);
    if (bands.size() > 1) parts = bands;
  }
  if (parts.size() > 1) {
    for (const Group& part : parts) Arrange(part, order);
    return;
  }
  Group rest = group;
  std::stable_sort(rest.begin(), rest.end(), [](const Control* left, const Control* right) {
    const Bounds& a = left->Place();
    const Bounds& b = right->Place();
    return a.top != b.top ? a.top < b.top : a.left < b.left;
  });
  order.insert(order.end(), rest.begin(), rest.end());
}

}  // namespace

std::vector<Control*> InReadingOrder(const Control& container) {
  Group seen;
  for (Control* control : container.Controls()) {
    if (control->Visible() && !LiesOutside(*control) && !IsCovered(*control)) {
      seen.push_back(control);
    }
  }
  Group order;
  Arrange(seen, order);
  return order;
}

bool IsSameLine(const Control& left, const Control& right) {
  if (!HasPlace(left) || !HasPlace(right)) return false;
  const auto middle_is_beside = [](const Bounds& a, const Bounds& b) {
    const int middle = a.top + a.height / 2;
    return middle >= b.top && middle < Bottom(b);
  };
  const Bounds& a = left.Place();
  const Bounds& b = right.Place();
  return std::max(a.height, b.height) < 3 * std::min(a.height, b.height) &&
         middle_is_beside(a, b) && middle_is_beside(b, a);
}

bool IsBeside(const Control& left, const Control& right) {
  const Bounds& a = left.Place();
  const Bounds& b = right.Place();
  return a.top < Bottom(b) && b.top < Bottom(a);
}

bool Overlap(const Control& left, const Control& right) {
  const Bounds& a = left.Place();
  const Bounds& b = right.Place();
  return IsBeside(left, right) && a.left < Right(b) && b.left < Right(a);
}

bool HasRows(const Control& control) {
  return dynamic_cast<const ListView*>(&control) != nullptr ||
         dynamic_cast<const TreeView*>(&control) != nullptr;
}

}  // namespace tidemark
