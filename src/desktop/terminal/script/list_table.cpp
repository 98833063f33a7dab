#include "desktop/terminal/script/list_table.h"

#include <algorithm>

#include "desktop/terminal/control_face.h"
#include "desktop/terminal/display_text.h"
#include "desktop/terminal/list_columns.h"

namespace tidemark {
namespace {

constexpr int kNarrowest = 3;

struct TableShape {
  std::vector<ShownColumn> columns;
  int number_width = 1;
  int marks_width = 0;  // of all that stands before the columns
};

TableShape Measure(const Rows& list, int first_row, int last_row, int width) {
  TableShape shape;
  shape.number_width = static_cast<int>(std::to_string(std::max(last_row, 1)).size());
  shape.marks_width = 2 + shape.number_width + kColumnGap + (list.HasCheckBoxes() ? 4 : 0);
  const auto needs = [&](int column) {
    int needed = DisplayWidth(list.Columns()[static_cast<std::size_t>(column)].text.View());
    for (int row = first_row; row <= last_row; ++row) {
      const Text& text = list.ColumnText(row, column);
      // No more than the line could ever show.
      const std::string_view head = text.View().substr(0, static_cast<std::size_t>(width) * 4);
      needed = std::max(needed, DisplayWidth(Displayable(head)));
    }
    return std::min(needed, width);
  };
  shape.columns = FitColumns(list, width - shape.marks_width, kNarrowest, needs);
  return shape;
}

Line NameLine(const Rows& list, int first_row, int last_row, int width) {
  const std::string count = std::to_string(list.Count());
  std::string range = count + (list.Count() == 1 ? " row " : " rows ");
  if (last_row - first_row + 1 < list.Count()) {
    range = std::to_string(first_row) + "-" + std::to_string(last_row) + " of " + range;
  }
  Line line("── ");
  line.Add(list.Source().Name()).Add(" ");
  const int room = width - line.Width() - static_cast<int>(range.size()) - 7;
  if (const std::string shown = Fit(Displayable(NameOf(list.Source())), room); !shown.empty()) {
    line.Add("── ").Add(shown).Add(" ");
  }
  std::string rule;
  for (int column = line.Width() + static_cast<int>(range.size()) + 4; column < width; ++column) {
    rule += "─";
  }
  return std::move(line.Add(rule + " ").Add(range).Add("──"));
}

void AddColumns(Line& line, const TableShape& shape,
                const std::function<std::string(const ShownColumn&)>& text_of) {
  int start = shape.marks_width;
  for (const ShownColumn& shown : shape.columns) {
    line.PadTo(start).Add(text_of(shown));
    start += shown.width + kColumnGap;
  }
}

Line HeadingLine(const Rows& list, const TableShape& shape) {
  Line line;
  AddColumns(line, shape, [&list](const ShownColumn& shown) {
    const ColumnHeader& header = list.Columns()[static_cast<std::size_t>(shown.column)];
    return Fit(Displayable(header.text.View()), shown.width);
  });
  return line;
}

Line RowLine(const Rows& list, int row, const TableShape& shape) {
  const bool selected = list.SelectedIdentity() == list.Identity(row);
  const std::string number = std::to_string(row);
  Line line(selected ? "> " : "  ");
  line.PadTo(2 + shape.number_width - static_cast<int>(number.size())).Add(number);
  line.PadTo(line.Width() + kColumnGap);
  if (list.HasCheckBoxes()) line.Add(list.Checked(row) ? "[x] " : "[ ] ");
  AddColumns(line, shape, [&list, row](const ShownColumn& shown) {
    return FitPath(Displayable(list.ColumnText(row, shown.column).View()), shown.width);
  });
  return line;
}

}  // namespace

Lines ListTable(const Rows& list, int first_row, int rows_in_view, int width) {
  const int last_row = std::min(list.Count(), first_row + rows_in_view - 1);
  const TableShape shape = Measure(list, first_row, last_row, width);
  Lines lines;
  lines.push_back(NameLine(list, first_row, last_row, width));
  if (list.HasHeadings()) lines.push_back(HeadingLine(list, shape));
  for (int row = first_row; row <= last_row; ++row) lines.push_back(RowLine(list, row, shape));
  return lines;
}

}  // namespace tidemark
