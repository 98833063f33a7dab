// How a list stands in its area of the screen: a line with its name, its headings, its rows.
#pragma once

#include <vector>

#include "desktop/terminal/list_columns.h"
#include "desktop/terminal/screen/area.h"
#include "desktop/terminal/scroll_positions.h"

namespace tidemark {

struct ListShape {
  static constexpr int kMarkWidth = 2;   // of the mark of the selected row
  static constexpr int kCheckWidth = 4;  // of a check mark

  Area area = {};
  int headings = 0;   // lines that they take
  int first_row = 1;  // from 1, at the top
  int rows_in_view = 0;
  int texts = 0;  // the screen's column where the texts begin
  std::vector<ShownColumn> columns = {};

  // From 1; 0 where there is none.
  int RowAt(int screen_row, const Rows& list) const;
  int HeadingAt(int screen_row, int screen_column) const;
  bool IsCheckMark(int screen_column) const;
  int LineOf(int row) const { return area.row + 1 + headings + row - first_row; }
};

// Columns are as wide as rows from all over the list need, so that they stay where they are while
// rows go by.
ListShape ShapeOf(const Rows& list, const Area& area, ScrollPositions& scroll);

}  // namespace tidemark
