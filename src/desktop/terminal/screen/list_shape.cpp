#include "desktop/terminal/screen/list_shape.h"

#include <algorithm>

#include "desktop/terminal/display_text.h"

namespace tidemark {

namespace {

// The width of the heading, and of rows from all over the list.
int WidthOfSample(const Rows& list, int column, int most) {
  constexpr int kSample = 60;
  const std::string_view heading = list.Columns()[static_cast<std::size_t>(column)].text.View();
  int width = DisplayWidth(Displayable(heading));
  const int rows = std::min(list.Count(), kSample);
  for (int i = 0; i < rows; ++i) {
    const int row = 1 + static_cast<int>(1LL * i * list.Count() / rows);
    const std::string_view text = list.ColumnText(row, column).View();
    width =
        std::max(width, DisplayWidth(Displayable(text.substr(0, static_cast<std::size_t>(most)))));
  }
  return width;
}

}  // namespace

int ListShape::RowAt(int screen_row, const Rows& list) const {
  const int row = screen_row - LineOf(first_row) + first_row;
  const bool in_view = row >= first_row && row < first_row + rows_in_view;
  return in_view && row <= list.Count() ? row : 0;
}

int ListShape::HeadingAt(int screen_row, int screen_column) const {
  if (headings == 0 || screen_row != area.row + 1) return 0;
  int end = texts;
  for (const ShownColumn& shown : columns) {
    end += shown.width + kColumnGap;
    if (screen_column >= texts && screen_column < end) return shown.column + 1;
  }
  return 0;
}

bool ListShape::IsCheckMark(int screen_column) const {
  return screen_column >= area.column + kMarkWidth && screen_column < texts;
}

ListShape ShapeOf(const Rows& list, const Area& area, ScrollPositions& scroll) {
  ListShape shape{.area = area};
  constexpr int kNarrowest = 6;
  shape.headings = list.HasHeadings() ? 1 : 0;
  shape.rows_in_view = std::max(area.height - 1 - shape.headings, 0);
  shape.first_row = scroll.FirstRow(list, shape.rows_in_view);
  const int marks = ListShape::kMarkWidth + (list.HasCheckBoxes() ? ListShape::kCheckWidth : 0);
  shape.texts = area.column + marks;
  shape.columns = FitColumns(list, area.width - marks, kNarrowest, [&](int column) {
    return std::min(WidthOfSample(list, column, area.width), area.width);
  });
  return shape;
}

}  // namespace tidemark
