#include "desktop/terminal/list_columns.h"

namespace tidemark {
namespace {

int DesignedWidth(const Rows& list, const ShownColumn& shown) {
  return list.Columns()[static_cast<std::size_t>(shown.column)].width_twips;
}

// Null when none can become narrower.
ShownColumn* WidestBesideItsDesign(const Rows& list, std::vector<ShownColumn>& columns,
                                   int narrowest) {
  ShownColumn* widest = nullptr;
  for (ShownColumn& shown : columns) {
    if (shown.width <= narrowest) continue;
    if (widest == nullptr ||
        shown.width * DesignedWidth(list, *widest) > widest->width * DesignedWidth(list, shown)) {
      widest = &shown;
    }
  }
  return widest;
}

}  // namespace

std::vector<ShownColumn> FitColumns(const Rows& list, int available, int narrowest,
                                    const std::function<int(int column)>& needs) {
  std::vector<ShownColumn> columns;
  int taken = -kColumnGap;
  for (int column = 0; column < static_cast<int>(list.Columns().size()); ++column) {
    ShownColumn shown{.column = column, .width = 0};
    if (DesignedWidth(list, shown) <= 0) continue;
    shown.width = needs(column);
    taken += shown.width + kColumnGap;
    columns.push_back(shown);
  }
  for (; taken > available; --taken) {
    ShownColumn* widest = WidestBesideItsDesign(list, columns, narrowest);
    if (widest == nullptr) break;
    --widest->width;
  }
  return columns;
}

}  // namespace tidemark
