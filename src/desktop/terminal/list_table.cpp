#include "desktop/terminal/list_table.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

#include "desktop/terminal/display_text.h"
#include "toolkit/access_key.h"

namespace tidemark {
namespace {

constexpr int kGap = 2;

struct WordStyle {
  std::string_view word;
  Style style;
};

// Words that the lists of states and severities use.
constexpr std::array kWordStyles = {
    WordStyle{"Severe", Style::kAlarm},     WordStyle{"High", Style::kBad},
    WordStyle{"Elevated", Style::kWarning}, WordStyle{"Guarded", Style::kNotice},
    WordStyle{"Low", Style::kGood},         WordStyle{"Pending", Style::kFaint},
    WordStyle{"Analyzing", Style::kStrong}, WordStyle{"Finished", Style::kGood},
    WordStyle{"Aborted", Style::kBad}};

int ColumnCount(const Rows& list) { return static_cast<int>(list.Columns().size()); }

// A list whose rows carry an icon shows the program's own words, not those of a PC.
Style CellStyle(const Rows& list, int row, int column) {
  if (!list.HasIcon(row) && !(list.ColumnText(row, 1) == "Pending")) return Style::kPlain;
  const Text& text = list.ColumnText(row, column);
  for (const WordStyle& entry : kWordStyles) {
    if (column > 0 && text == entry.word) return entry.style;
  }
  return Style::kPlain;
}

bool HasHeadings(const Rows& list) {
  return std::any_of(list.Columns().begin(), list.Columns().end(),
                     [](const ColumnHeader& header) { return !header.text.empty(); });
}

int IndexOf(const Rows& list, const void* identity) {
  for (int row = 1; row <= list.Count(); ++row) {
    if (list.Identity(row) == identity) return row;
  }
  return 0;
}

// Takes column by column from the one that is widest beside its designed width, until all fit.
void ShrinkTo(std::vector<int>& widths, const std::vector<int>& designed, int available) {
  constexpr int kNarrowest = 3;
  while (std::accumulate(widths.begin(), widths.end(), 0) > available) {
    std::size_t widest = widths.size();
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (widths[i] <= kNarrowest) continue;
      if (widest == widths.size() || widths[i] * designed[widest] > widths[widest] * designed[i]) {
        widest = i;
      }
    }
    if (widest == widths.size()) return;
    --widths[widest];
  }
}

struct TableShape {
  std::vector<int> columns;  // those that are shown
  std::vector<int> widths;
  int number_width = 1;
};

TableShape Measure(const Rows& list, int first_row, int last_row, int width) {
  TableShape shape;
  std::vector<int> designed;
  shape.number_width = static_cast<int>(std::to_string(std::max(last_row, 1)).size());
  for (int column = 0; column < ColumnCount(list); ++column) {
    const ColumnHeader& header = list.Columns()[static_cast<std::size_t>(column)];
    if (header.width_twips <= 0) continue;
    int needed = DisplayWidth(header.text.View());
    for (int row = first_row; row <= last_row; ++row) {
      const Text& text = list.ColumnText(row, column);
      // No more than the line could ever show.
      const std::string_view head = text.View().substr(0, static_cast<std::size_t>(width) * 4);
      needed = std::max(needed, DisplayWidth(Displayable(head)));
    }
    shape.columns.push_back(column);
    shape.widths.push_back(std::min(needed, width));
    designed.push_back(header.width_twips);
  }
  const int marks = 2 + shape.number_width + kGap + (list.HasCheckBoxes() ? 4 : 0);
  const int gaps = kGap * (static_cast<int>(shape.columns.size()) - 1);
  ShrinkTo(shape.widths, designed, width - marks - gaps);
  return shape;
}

Line NameLine(const Rows& list, int first_row, int last_row, int width) {
  const std::string count = std::to_string(list.Count());
  std::string range = count + (list.Count() == 1 ? " row " : " rows ");
  if (last_row - first_row + 1 < list.Count()) {
    range = std::to_string(first_row) + "-" + std::to_string(last_row) + " of " + range;
  }
  Line line("── ", Style::kFaint);
  line.Add(list.Source().Name(), Style::kNotice).Add(" ");
  const std::string title = WithoutAccessKey(list.Source().AccessibleName().View());
  const int room = width - line.Width() - static_cast<int>(range.size()) - 7;
  if (const std::string shown = Fit(Displayable(title), room); !shown.empty()) {
    line.Add("── ", Style::kFaint).Add(shown, Style::kStrong).Add(" ");
  }
  std::string rule;
  for (int column = line.Width() + static_cast<int>(range.size()) + 4; column < width; ++column) {
    rule += "─";
  }
  return std::move(line.Add(rule + " ", Style::kFaint).Add(range).Add("──", Style::kFaint));
}

Line HeadingLine(const Rows& list, const TableShape& shape) {
  Line line;
  line.PadTo(2 + shape.number_width + kGap + (list.HasCheckBoxes() ? 4 : 0));
  for (std::size_t i = 0; i < shape.columns.size(); ++i) {
    const int start = line.Width();
    const ColumnHeader& header = list.Columns()[static_cast<std::size_t>(shape.columns[i])];
    line.Add(Fit(Displayable(header.text.View()), shape.widths[i]), Style::kStrong);
    if (i + 1 < shape.columns.size()) line.PadTo(start + shape.widths[i] + kGap);
  }
  return line;
}

Line RowLine(const Rows& list, int row, const TableShape& shape) {
  const bool selected = list.SelectedIdentity() == list.Identity(row);
  const std::string number = std::to_string(row);
  Line line(selected ? "> " : "  ", Style::kStrong);
  line.PadTo(2 + shape.number_width - static_cast<int>(number.size())).Add(number, Style::kFaint);
  line.PadTo(line.Width() + kGap);
  if (list.HasCheckBoxes()) line.Add(list.Checked(row) ? "[x] " : "[ ] ");
  for (std::size_t i = 0; i < shape.columns.size(); ++i) {
    const int start = line.Width();
    const std::string text = Displayable(list.ColumnText(row, shape.columns[i]).View());
    const Style style = CellStyle(list, row, shape.columns[i]);
    line.Add(FitPath(text, shape.widths[i]),
             selected && style == Style::kPlain ? Style::kStrong : style);
    if (i + 1 < shape.columns.size()) line.PadTo(start + shape.widths[i] + kGap);
  }
  return line;
}

}  // namespace

int TableHeadLines(const Rows& list) { return HasHeadings(list) ? 2 : 1; }

int ScrollPositions::FirstRow(const Rows& list, int rows_in_view) {
  Position& position = positions_[list.Source().Name()];
  position.rows_in_view = std::max(rows_in_view, 1);
  const void* follow = nullptr;
  if (list.VisibleIdentity() != position.followed)
    follow = position.followed = list.VisibleIdentity();
  if (list.SelectedIdentity() != position.selected)
    follow = position.selected = list.SelectedIdentity();
  if (follow != nullptr) {
    const int row = IndexOf(list, follow);
    if (row >= position.first + position.rows_in_view) {
      position.first = row - position.rows_in_view + 1;
    } else if (row > 0 && row < position.first) {
      position.first = row;
    }
  }
  const int last_first = std::max(1, list.Count() - position.rows_in_view + 1);
  position.first = std::clamp(position.first, 1, last_first);
  return position.first;
}

void ScrollPositions::ScrollBy(const Rows& list, int views) {
  const Position& position = positions_[list.Source().Name()];
  ScrollTo(list, position.first + views * position.rows_in_view);
}

void ScrollPositions::ScrollTo(const Rows& list, int row) {
  positions_[list.Source().Name()].first = std::clamp(row, 1, std::max(1, list.Count()));
}

Lines ListTable(const Rows& list, int first_row, int rows_in_view, int width) {
  const int last_row = std::min(list.Count(), first_row + rows_in_view - 1);
  const TableShape shape = Measure(list, first_row, last_row, width);
  Lines lines;
  lines.push_back(NameLine(list, first_row, last_row, width));
  if (HasHeadings(list)) lines.push_back(HeadingLine(list, shape));
  for (int row = first_row; row <= last_row; ++row) lines.push_back(RowLine(list, row, shape));
  return lines;
}

std::string ListText(const Rows& list, int first_row, int rows, std::string_view separator) {
  std::string text;
  const auto add = [&](std::string_view field) { text.append(separator).append(field); };
  text += "row";
  add("key");
  if (list.HasCheckBoxes()) add("checked");
  for (const ColumnHeader& header : list.Columns()) add(Displayable(header.text.View()));
  text += '\n';
  const int last_row = std::min(list.Count(), first_row + std::min(rows, list.Count()) - 1);
  for (int row = first_row; row <= last_row; ++row) {
    text += std::to_string(row);
    add(Displayable(list.Key(row).View()));
    if (list.HasCheckBoxes()) add(list.Checked(row) ? "[x]" : "[ ]");
    for (int column = 0; column < ColumnCount(list); ++column) {
      add(Displayable(list.ColumnText(row, column).View()));
    }
    text += '\n';
  }
  return text;
}

}  // namespace tidemark
