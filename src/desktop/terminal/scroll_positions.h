// Where each list is scrolled to.
#pragma once

#include <map>
#include <string>

#include "desktop/terminal/rows.h"

namespace tidemark {

// Lists are known by name, so that one that is gone with its window does no harm.
class ScrollPositions {
 public:
  // The row, from 1, that stands first when that many rows are in view. Follows what the program
  // scrolls into view, and the selection when it moves.
  int FirstRow(const Rows& list, int rows_in_view);

  // Scrolls by whole views, forward or back.
  void ScrollBy(const Rows& list, int views);
  void ScrollByRows(const Rows& list, int rows);
  // Makes that row the first one, as far as there are rows behind it.
  void ScrollTo(const Rows& list, int row);

 private:
  struct Position {
    int first = 1;
    int rows_in_view = 1;
    const void* followed = nullptr;
    const void* selected = nullptr;
  };
  std::map<std::string, Position> positions_;
};

}  // namespace tidemark
