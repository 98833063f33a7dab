// How wide the columns of a list are in a terminal.
#pragma once

#include <functional>
#include <vector>

#include "desktop/terminal/rows.h"

namespace tidemark {

struct ShownColumn {
  int column = 0;  // from 0
  int width = 0;
};

inline constexpr int kColumnGap = 2;

// The columns that have a width by design. Each gets what `needs` says; where that is too much for
// `available` (with the gaps), those that have most beside their designed width lose it first, down
// to `narrowest`.
std::vector<ShownColumn> FitColumns(const Rows& list, int available, int narrowest,
                                    const std::function<int(int column)>& needs);

}  // namespace tidemark
