#include "desktop/terminal/screen/painter.h"

#include <algorithm>
#include <array>

#include "desktop/terminal/control_face.h"
#include "desktop/terminal/display_text.h"
#include "toolkit/access_key.h"
#include "toolkit/menu.h"

namespace tidemark {
namespace {

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
    WordStyle{"Aborted", Style::kBad},      WordStyle{"No", Style::kBad}};

// A list whose rows carry an icon shows the program's own words, not those of a PC.
Style CellStyle(const Rows& list, int row, int column) {
  if (!list.HasIcon(row) && !(list.ColumnText(row, 1) == "Pending")) return Style::kPlain;
  const Text& text = list.ColumnText(row, column);
  for (const WordStyle& entry : kWordStyles) {
    if (column > 0 && text == entry.word) return entry.style;
  }
  return Style::kPlain;
}

// No more of a long text than a line could ever show.
std::string Head(std::string_view text, int width) {
  constexpr std::size_t kMostBytes = 8;
  const auto most = static_cast<std::size_t>(std::max(width, 0)) * kMostBytes + 1024;
  return Displayable(text.substr(0, most));
}

}  // namespace

void Painter::PaintControls(const Layout& layout, const Control* focused) {
  std::size_t index = 0;
  for (const PlacedControl& placed : layout.controls) {
    if (index++ == layout.framed_from) {
      for (const Area& frame : layout.frames) PaintFrame(frame, {});
    }
    Paint(placed, placed.control == focused);
  }
}

void Painter::PaintFrame(const Area& area, std::string_view title) {
  screen_.Frame(area);
  const std::string shown = Fit(Displayable(title), area.width - 6);
  if (!shown.empty()) screen_.Put(area.row, area.column + 2, " " + shown + " ", Style::kTitle);
}

void Painter::Paint(const PlacedControl& placed, bool focused) {
  Control& control = *placed.control;
  const Area& area = placed.area;
  if (const auto list = RowsOf(control)) {
    PaintList(*list, area, focused);
  } else if (const auto percent = PercentOf(control)) {
    PaintBar(*percent, area);
  } else if (const auto* box = dynamic_cast<const TextBox*>(&control)) {
    PaintTextBox(*box, area, focused);
  } else if (IsTab(control) || IsPageButton(control)) {
    PaintTab(control, area, focused);
  } else if (const auto* label = dynamic_cast<const Label*>(&control)) {
    PaintLabel(*label, placed, focused);
  } else if (ButtonCaption(control) || !MarkOf(control).empty()) {
    PaintButton(control, area, focused);
  } else if (const auto* image = dynamic_cast<const ImageBox*>(&control)) {
    screen_.Put(area.row, area.column, Fit(Displayable(ImageText(*image)), area.width),
                focused ? Style::kFocus : Style::kNotice);
  }
}

void Painter::PutCaption(const Area& area, std::string_view before, std::string_view caption,
                         std::string_view behind, Style style) {
  const ShownCaption shown = ShowCaption(caption);
  const std::string text = std::string(before).append(Displayable(shown.text)).append(behind);
  std::optional<std::size_t> key;
  if (shown.key_size > 0) key = before.size() + shown.key;
  screen_.Put(area.row, area.column, Fit(text, area.width), style, key);
}

void Painter::PaintButton(const Control& control, const Area& area, bool focused) {
  const auto* button = dynamic_cast<const CommandButton*>(&control);
  const bool is_default = button != nullptr && button->Default();
  Style style = is_default ? Style::kStrong : Style::kPlain;
  if (!control.Enabled()) style = Style::kFaint;
  if (focused) style = Style::kFocus;
  if (const std::string_view mark = MarkOf(control); !mark.empty()) {
    PutCaption(area, mark, AccessKeyText(control), "", style);
  } else if (const auto* item = dynamic_cast<const MenuItem*>(&control)) {
    if (item->IsSeparator()) return screen_.Rule(area.row, area.column, area.width);
    screen_.Fill(area, style);
    PutCaption(area, " ", AccessKeyText(control), " ", style);
  } else {
    PutCaption(area, "[ ", AccessKeyText(control), " ]", style);
  }
}

void Painter::PaintTab(const Control& control, const Area& area, bool focused) {
  const Style style = focused ? Style::kFocus : IsChosen(control) ? Style::kChosen : Style::kPlain;
  const std::string_view left = IsChosen(control) ? "[" : " ";
  PutCaption(area, left, AccessKeyText(control), IsChosen(control) ? "]" : " ", style);
  if (IsPageButton(control) && control.Container()->Container() == nullptr) {
    screen_.Rule(area.row + 1, 0, screen_.Width());
  }
}

void Painter::PaintLabel(const Label& label, const PlacedControl& placed, bool focused) {
  const Area& area = placed.area;
  Style style = label.Font().bold ? Style::kStrong : Style::kPlain;
  if (focused) style = Style::kFocus;
  const std::vector<std::string> lines = LabelLines(label, area.width);
  const int end = std::min(placed.first_line + area.height, static_cast<int>(lines.size()));
  for (int line = placed.first_line; line < end; ++line) {
    std::string text = lines[static_cast<std::size_t>(line)];
    if (line + 1 == end && lines.size() > static_cast<std::size_t>(end)) text += " …";
    screen_.Put(area.row + line - placed.first_line, area.column, Fit(text, area.width), style);
  }
}

void Painter::PaintBar(int percent, const Area& area) {
  constexpr int kNumber = 6;  // " 100 %"
  const int columns = std::max(area.width - kNumber, 0);
  const int filled = columns * percent / 100;
  screen_.Fill({area.row, area.column, 1, filled}, Style::kBar);
  screen_.Put(area.row, area.column + filled,
              std::string(static_cast<std::size_t>(columns - filled), '.'), Style::kFaint);
  screen_.Put(area.row, area.column + columns, " " + std::to_string(percent) + " %");
}

// So much of the text that the cursor is in sight.
void Painter::PaintTextBox(const TextBox& box, const Area& area, bool focused) {
  const std::string_view text = box.Text().View();
  const auto caret = static_cast<std::size_t>(box.SelStart() + box.SelLength());
  const int width = area.width - 2;
  std::size_t start = 0;
  while (start < caret &&
         DisplayWidth(Displayable(text.substr(start, caret - start))) > width - 1) {
    do {
      ++start;
    } while (start < text.size() && (static_cast<unsigned char>(text[start]) & 0xC0U) == 0x80U);
  }
  screen_.Fill(area, Style::kStatus);
  const std::string seen = Displayable(text.substr(start));
  screen_.Put(area.row, area.column + 1, Cut(seen, width),
              box.SelLength() > 0 && focused ? Style::kFocus : Style::kStatus);
  if (!focused) return;
  screen_.PutCursor(area.row,
                    area.column + 1 + DisplayWidth(Displayable(text.substr(start, caret - start))));
}

void Painter::PaintList(const Rows& list, const Area& area, bool focused) {
  const ListShape shape = ShapeOf(list, area, scroll_);
  PaintListTitle(list, shape, focused);
  int column = shape.texts;
  for (const ShownColumn& shown : shape.columns) {
    if (shape.headings == 0) break;
    const ColumnHeader& header = list.Columns()[static_cast<std::size_t>(shown.column)];
    screen_.Put(area.row + 1, column, Fit(Displayable(header.text.View()), shown.width),
                Style::kStrong);
    column += shown.width + kColumnGap;
  }
  const int end = std::min(list.Count() + 1, shape.first_row + shape.rows_in_view);
  for (int row = shape.first_row; row < end; ++row) PaintRow(list, shape, row, focused);
}

void Painter::PaintListTitle(const Rows& list, const ListShape& shape, bool focused) {
  constexpr int kNarrow = 32;
  const Area& area = shape.area;
  const int last = std::min(list.Count(), shape.first_row + shape.rows_in_view - 1);
  std::string range = " " + std::to_string(list.Count()) + (list.Count() == 1 ? " row " : " rows ");
  if (last - shape.first_row + 1 < list.Count()) {
    range = " " + std::to_string(shape.first_row) + "-" + std::to_string(last) + " of " +
            std::to_string(list.Count()) + " ";
  }
  if (area.width < kNarrow) range.clear();
  screen_.Rule(area.row, area.column, area.width);
  const int range_at = area.column + area.width - 1 - static_cast<int>(range.size());
  const std::string name = Fit(NameOf(list.Source()), range_at - area.column - 4);
  if (!name.empty()) {
    PutCaption({area.row, area.column + 1, 1, range_at - area.column - 2}, " ",
               name == NameOf(list.Source()) ? list.Source().AccessibleName().View()
                                             : std::string_view(name),
               " ", focused ? Style::kFocus : Style::kTitle);
  }
  screen_.Put(area.row, range_at, range, focused ? Style::kFocus : Style::kFrame);
}

void Painter::PaintRow(const Rows& list, const ListShape& shape, int row, bool focused) {
  const int line = shape.LineOf(row);
  const bool selected = list.SelectedIdentity() == list.Identity(row);
  const bool marked = range_.Holds(list, row);
  Style style = selected ? Style::kStrong : Style::kPlain;
  if (marked) style = Style::kMarked;
  if (selected && focused) style = Style::kFocus;
  const Area& area = shape.area;
  if (style == Style::kFocus || marked) screen_.Fill({line, area.column, 1, area.width}, style);
  screen_.Put(line, area.column, selected ? ">" : marked ? "+" : " ", style);
  if (list.HasCheckBoxes()) {
    screen_.Put(line, area.column + ListShape::kMarkWidth, list.Checked(row) ? "[x]" : "[ ]",
                style);
  }
  int column = shape.texts;
  for (const ShownColumn& shown : shape.columns) {
    const std::string text = Head(list.ColumnText(row, shown.column).View(), shown.width);
    const Style cell = CellStyle(list, row, shown.column);
    screen_.Put(line, column, FitPath(text, shown.width),
                style == Style::kPlain || style == Style::kStrong
                    ? (cell == Style::kPlain ? style : cell)
                    : style);
    column += shown.width + kColumnGap;
  }
}

}  // namespace tidemark
