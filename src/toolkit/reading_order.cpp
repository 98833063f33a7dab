#include "toolkit/reading_order.h"

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

Arrangement Arrange(const Group& group) {
  using Kind = Arrangement::Kind;
  std::vector<Group> parts = Columns(group);
  Kind kind = Kind::kRow;
  if (std::count_if(parts.begin(), parts.end(), HasLists) < 2) {
    const std::vector<Group> bands = Bands(group);
    if (bands.size() > 1) {
      parts = bands;
      kind = Kind::kStack;
    }
  }
  Arrangement arrangement{.kind = kind, .control = nullptr, .parts = {}};
  if (parts.size() > 1) {
    for (const Group& part : parts) arrangement.parts.push_back(Arrange(part));
    return arrangement;
  }
  Group rest = group;
  std::stable_sort(rest.begin(), rest.end(), [](const Control* left, const Control* right) {
    const Bounds& a = left->Place();
    const Bounds& b = right->Place();
    return a.top != b.top ? a.top < b.top : a.left < b.left;
  });
  const auto leaf = [](Control* control) {
    return Arrangement{.kind = Kind::kControl, .control = control, .parts = {}};
  };
  if (rest.size() == 1) return leaf(rest[0]);
  arrangement.kind = Kind::kStack;
  for (Control* control : rest) arrangement.parts.push_back(leaf(control));
  return arrangement;
}

void AddInOrder(const Arrangement& arrangement, Group& order) {
  if (arrangement.control != nullptr) order.push_back(arrangement.control);
  for (const Arrangement& part : arrangement.parts) AddInOrder(part, order);
}

}  // namespace

Arrangement ArrangementOf(const Control& container,
                          const std::function<bool(const Control&)>& counts) {
  Group seen;
  for (Control* control : container.Controls()) {
    if (counts && !counts(*control)) continue;
    if (control->Visible() && !LiesOutside(*control) && !IsCovered(*control)) {
      seen.push_back(control);
    }
  }
  return Arrange(seen);
}

std::vector<Control*> InReadingOrder(const Control& container) {
  Group order;
  AddInOrder(ArrangementOf(container), order);
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

bool CoversList(const Control& panel) {
  const auto& siblings = panel.Container()->Controls();
  return std::any_of(siblings.begin(), siblings.end(), [&panel](const Control* other) {
    return HasRows(*other) && other->Visible() && Overlap(*other, panel);
  });
}

}  // namespace tidemark
