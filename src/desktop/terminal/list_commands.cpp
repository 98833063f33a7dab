#include "desktop/terminal/list_commands.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

#include "desktop/terminal/control_face.h"
#include "desktop/terminal/display_text.h"
#include "desktop/terminal/rows.h"

namespace tidemark {
namespace {

std::unique_ptr<Rows> AsRows(Control& control) {
  if (auto rows = RowsOf(control)) return rows;
  Refuse(control.Name() + " is no list");
}

ListView& AsList(Control& control) {
  if (auto* list = dynamic_cast<ListView*>(&control)) return *list;
  Refuse(control.Name() + " is no list");
}

// By row number, by key, or by text.
int RowOf(const Rows& list, std::string_view row) {
  const std::string& name = list.Source().Name();
  if (row.empty()) Refuse("which row of " + name + "?");
  if (const std::optional<int> number = Number(row)) {
    if (*number >= 1 && *number <= list.Count()) return *number;
  }
  if (const int found = list.FindKey(row)) return found;
  for (int index = 1; index <= list.Count(); ++index) {
    if (IsSameWord(list.ColumnText(index, 0).View(), row)) return index;
  }
  Refuse(name + " has no row " + std::string(row));
}

struct RowRange {
  int first;
  int last;
};

// "all", "7", "3-9"; nothing for another text or rows that the list does not have.
std::optional<RowRange> AsRange(const Rows& list, std::string_view word) {
  if (IsSameWord(word, "all")) return RowRange{1, list.Count()};
  const std::size_t dash = word.find('-');
  const std::optional<int> first = Number(word.substr(0, dash));
  const std::optional<int> last =
      dash == std::string_view::npos ? first : Number(word.substr(dash + 1));
  if (!first || !last || *first < 1 || *first > *last || *last > list.Count()) return std::nullopt;
  return RowRange{*first, *last};
}

std::vector<RowRange> Ranges(const Rows& list, std::string_view rows) {
  std::vector<RowRange> ranges;
  for (Arguments words(rows); !words.IsEmpty();) {
    const std::optional<RowRange> range = AsRange(list, words.Next());
    if (!range) return {};
    ranges.push_back(*range);
  }
  return ranges;
}

void SetTicks(Rows& list, std::string_view rows, bool checked) {
  if (!list.HasCheckBoxes()) Refuse(list.Source().Name() + " has no check boxes");
  const std::vector<RowRange> ranges = Ranges(list, rows);
  if (ranges.empty()) {
    list.UserCheck(RowOf(list, rows), checked);
    return;
  }
  for (const RowRange& range : ranges) {
    // A handler may have changed the list.
    for (int row = range.first; row <= std::min(range.last, list.Count()); ++row) {
      list.UserCheck(row, checked);
    }
  }
}

CommandResult SetTick(Arguments arguments, const Context& context, bool checked) {
  Control& control = Reachable(arguments.Next(), context);
  if (auto* box = dynamic_cast<CheckBox*>(&control)) {
    if ((box->Value() == 1) != checked) box->Click();
  } else {
    SetTicks(*AsRows(control), arguments.Rest(), checked);
  }
  return {};
}

// The rows from first_row on with the full texts of all columns, one a line under a line of
// headings: row number, key, check mark (in a list that has them), texts; the separator between
// them.
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
    for (int column = 0; column < static_cast<int>(list.Columns().size()); ++column) {
      add(Displayable(list.ColumnText(row, column).View()));
    }
    text += '\n';
  }
  return text;
}

CommandResult ShowRows(const Rows& list, Arguments arguments, std::string_view separator) {
  const std::string_view from = arguments.Next();
  const std::string_view count = arguments.Next();
  const std::optional<int> first_row = from.empty() ? 1 : Number(from);
  const std::optional<int> rows = count.empty() ? std::numeric_limits<int>::max() : Number(count);
  if (!first_row || *first_row < 1 || !rows || *rows < 0) Refuse("usage: show LIST [FROM [COUNT]]");
  return {.next = CommandResult::Next::kOutput,
          .output = ListText(list, *first_row, *rows, separator)};
}

}  // namespace

CommandResult Tick(Arguments arguments, const Context& context) {
  return SetTick(arguments, context, true);
}

CommandResult Untick(Arguments arguments, const Context& context) {
  return SetTick(arguments, context, false);
}

CommandResult Select(Arguments arguments, const Context& context) {
  const auto list = AsRows(Reachable(arguments.Next(), context));
  list->UserSelect(RowOf(*list, arguments.Rest()));
  return {};
}

CommandResult Open(Arguments arguments, const Context& context) {
  ListView& list = AsList(Reachable(arguments.Next(), context));
  const auto rows = RowsOf(list);
  rows->UserSelect(RowOf(*rows, arguments.Rest()));
  list.UserDoubleClick();
  return {};
}

CommandResult ContextMenu(Arguments arguments, const Context& context) {
  ListView& list = AsList(Reachable(arguments.Next(), context));
  // Without a row it is the menu key.
  const bool has_row = !arguments.IsEmpty();
  list.UserContextMenu(has_row ? list.Item(RowOf(*RowsOf(list), arguments.Rest())) : nullptr);
  return {};
}

CommandResult Press(Arguments arguments, const Context& context) {
  ListView& list = AsList(Reachable(arguments.Next(), context));
  if (!IsSameWord(arguments.Next(), "column")) Refuse("usage: press LIST column N");
  const std::optional<int> column = Number(arguments.Rest());
  if (!column || *column < 1 || *column > static_cast<int>(list.columns.size())) {
    Refuse(list.Name() + " has columns 1 to " + std::to_string(list.columns.size()));
  }
  list.UserColumnClick(*column);
  return {};
}

CommandResult Scroll(Arguments arguments, const Context& context) {
  const auto list = AsRows(Named(arguments.Next(), context));
  const std::string_view where = arguments.Rest();
  ScrollPositions& scroll = context.desk.scroll;
  if (IsSameWord(where, "next") || where.empty()) {
    scroll.ScrollBy(*list, 1);
  } else if (IsSameWord(where, "back")) {
    scroll.ScrollBy(*list, -1);
  } else if (IsSameWord(where, "first")) {
    scroll.ScrollTo(*list, 1);
  } else if (IsSameWord(where, "last")) {
    scroll.ScrollTo(*list, list->Count());
  } else if (const std::optional<int> row = Number(where)) {
    scroll.ScrollTo(*list, *row);
  } else {
    Refuse("usage: page LIST next, back, first, last or a row number");
  }
  return {};
}

CommandResult Show(Arguments arguments, const Context& context) {
  if (arguments.IsEmpty()) return {.next = CommandResult::Next::kRepeatPage, .output = {}};
  Control& control = Named(arguments.Next(), context);
  if (const auto list = RowsOf(control)) return ShowRows(*list, arguments, context.list_separator);
  std::string text = Displayable(ControlText(control));
  if (!control.IsShown()) {
    text += " (not shown)";
  } else if (!control.Enabled()) {
    text += " (disabled)";
  }
  return {.next = CommandResult::Next::kOutput, .output = text + "\n"};
}

}  // namespace tidemark
