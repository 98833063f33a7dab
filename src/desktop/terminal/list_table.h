// A list or a tree as a table, and where each one is scrolled to.
#pragma once

#include <map>
#include <string>

#include "desktop/terminal/rows.h"
#include "desktop/terminal/styled_line.h"

namespace tidemark {

// Lists are known by name, so that one that is gone with its window does no harm.
class ScrollPositions {
 public:
  // The row, from 1, that stands first when that many rows are in view. Follows what the program
  // scrolls into view, and the selection when it moves.
  int FirstRow(const Rows& list, int rows_in_view);

  // Scrolls by whole views, forward or back.
  void ScrollBy(const Rows& list, int views);
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

// The lines above the rows: the list's name with the range in view, and the columns' headings if
// there are any.
int TableHeadLines(const Rows& list);

// Columns of no width are left out; the others share the width by what the rows in view need.
Lines ListTable(const Rows& list, int first_row, int rows_in_view, int width);

// The rows from first_row on with the full texts of all columns, one a line under a line of
// headings: row number, key, check mark (in a list that has them), texts; the separator between
// them.
std::string ListText(const Rows& list, int first_row, int rows, std::string_view separator);

}  // namespace tidemark
