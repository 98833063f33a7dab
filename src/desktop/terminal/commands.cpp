#include "desktop/terminal/commands.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <utility>

#include "controls/xp_progress_bar.h"
#include "desktop/terminal/display_text.h"
#include "platform/letter_case.h"

namespace tidemark {
namespace {

using Next = CommandResult::Next;

// What stands behind the command's word, taken off word by word.
class Arguments {
 public:
  explicit Arguments(std::string_view text) : text_(Trimmed(text)) {}

  bool IsEmpty() const { return text_.empty(); }
  std::string_view Rest() const { return text_; }
  std::string_view Next() {
    const std::string_view word = text_.substr(0, text_.find_first_of(" \t"));
    text_ = Trimmed(text_.substr(word.size()));
    return word;
  }

 private:
  static std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
  }
  std::string_view text_;
};

struct Context {
  Desk& desk;
  std::string_view list_separator;
};

struct Command {
  std::string_view name;
  std::string_view usage;
  std::string_view help;
  CommandResult (*run)(Arguments arguments, const Context& context);
};

[[noreturn]] void Refuse(const std::string& reason) { throw CommandRefused(Displayable(reason)); }

bool IsSameWord(std::string_view left, std::string_view right) {
  return CompareIgnoringCase(left, right) == 0;
}

std::optional<int> Number(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

Control& Named(std::string_view name, const Context& context) {
  if (name.empty()) Refuse("which control? \"help\" lists the commands");
  if (Control* control = context.desk.Find(name)) return *control;
  Refuse("there is no control named " + std::string(name));
}

// A control that a person can reach with the mouse now.
Control& Reachable(std::string_view name, const Context& context) {
  Control& control = Named(name, context);
  if (!control.IsShown()) Refuse(control.Name() + " is not shown");
  if (!control.Enabled()) Refuse(control.Name() + " is disabled");
  return control;
}

ListView& AsList(Control& control) {
  if (auto* list = dynamic_cast<ListView*>(&control)) return *list;
  Refuse(control.Name() + " is no list");
}

// By row number, by key, or by text.
ListItem& Row(ListView& list, std::string_view row) {
  if (row.empty()) Refuse("which row of " + list.Name() + "?");
  if (const std::optional<int> number = Number(row)) {
    if (ListItem* item = list.Item(*number)) return *item;
  }
  if (ListItem* item = list.Item(row)) return *item;
  for (int index = 1; index <= list.Count(); ++index) {
    if (IsSameWord(list.Item(index)->Caption().View(), row)) return *list.Item(index);
  }
  Refuse(list.Name() + " has no row " + std::string(row));
}

struct RowRange {
  int first;
  int last;
};

// "all", "7", "3-9"; nothing for another text or rows that the list does not have.
std::optional<RowRange> AsRange(const ListView& list, std::string_view word) {
  if (IsSameWord(word, "all")) return RowRange{1, list.Count()};
  const std::size_t dash = word.find('-');
  const std::optional<int> first = Number(word.substr(0, dash));
  const std::optional<int> last =
      dash == std::string_view::npos ? first : Number(word.substr(dash + 1));
  if (!first || !last || *first < 1 || *first > *last || *last > list.Count()) return std::nullopt;
  return RowRange{*first, *last};
}

std::vector<RowRange> Ranges(ListView& list, std::string_view rows) {
  std::vector<RowRange> ranges;
  for (Arguments words(rows); !words.IsEmpty();) {
    const std::optional<RowRange> range = AsRange(list, words.Next());
    if (!range) return {};
    ranges.push_back(*range);
  }
  return ranges;
}

void SetTicks(ListView& list, std::string_view rows, bool checked) {
  if (!list.check_boxes) Refuse(list.Name() + " has no check boxes");
  const std::vector<RowRange> ranges = Ranges(list, rows);
  if (ranges.empty()) {
    list.UserCheck(Row(list, rows), checked);
    return;
  }
  for (const RowRange& range : ranges) {
    // A handler may have changed the list.
    for (int row = range.first; row <= std::min(range.last, list.Count()); ++row) {
      list.UserCheck(*list.Item(row), checked);
    }
  }
}

CommandResult SetTick(Arguments arguments, const Context& context, bool checked) {
  Control& control = Reachable(arguments.Next(), context);
  if (auto* box = dynamic_cast<CheckBox*>(&control)) {
    if ((box->Value() == 1) != checked) box->Click();
  } else {
    SetTicks(AsList(control), arguments.Rest(), checked);
  }
  return {};
}

CommandResult Tick(Arguments arguments, const Context& context) {
  return SetTick(arguments, context, true);
}

CommandResult Untick(Arguments arguments, const Context& context) {
  return SetTick(arguments, context, false);
}

// The control may be gone with its window when its handler returns.
CommandResult Click(Arguments arguments, const Context& context) {
  Control& control = Reachable(arguments.Next(), context);
  if (auto* box = dynamic_cast<CheckBox*>(&control)) {
    box->Click();
  } else if (auto* clickable = dynamic_cast<ClickControl*>(&control)) {
    clickable->Click();
  } else {
    Refuse(control.Name() + " can't be clicked; see \"help select\"");
  }
  return {};
}

CommandResult Select(Arguments arguments, const Context& context) {
  ListView& list = AsList(Reachable(arguments.Next(), context));
  list.UserSelect(Row(list, arguments.Rest()));
  return {};
}

CommandResult Open(Arguments arguments, const Context& context) {
  ListView& list = AsList(Reachable(arguments.Next(), context));
  list.UserSelect(Row(list, arguments.Rest()));
  list.UserDoubleClick();
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
  const ListView& list = AsList(Named(arguments.Next(), context));
  const std::string_view where = arguments.Rest();
  ScrollPositions& scroll = context.desk.scroll;
  if (IsSameWord(where, "next") || where.empty()) {
    scroll.ScrollBy(list, 1);
  } else if (IsSameWord(where, "back")) {
    scroll.ScrollBy(list, -1);
  } else if (IsSameWord(where, "first")) {
    scroll.ScrollTo(list, 1);
  } else if (IsSameWord(where, "last")) {
    scroll.ScrollTo(list, list.Count());
  } else if (const std::optional<int> row = Number(where)) {
    scroll.ScrollTo(list, *row);
  } else {
    Refuse("usage: page LIST next, back, first, last or a row number");
  }
  return {};
}

std::string ControlText(const Control& control) {
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) {
    return (box->Value() == 1 ? "[x] " : "[ ] ") + box->Caption().String();
  }
  if (const auto* button = dynamic_cast<const CommandButton*>(&control)) {
    return button->Caption().String();
  }
  if (const auto* label = dynamic_cast<const Label*>(&control)) return label->Caption().String();
  if (const auto* form = dynamic_cast<const Form*>(&control)) return form->Caption().String();
  if (const auto* image = dynamic_cast<const ImageBox*>(&control)) {
    return std::string(FileTitle(image->PictureFile()));
  }
  if (const auto* bar = dynamic_cast<const XP_ProgressBar*>(&control)) {
    return std::to_string(bar->Percent()) + " %";
  }
  return {};
}

CommandResult Show(Arguments arguments, const Context& context) {
  if (arguments.IsEmpty()) return {.next = Next::kRepeatPage, .output = {}};
  const Control& control = Named(arguments.Next(), context);
  if (const auto* list = dynamic_cast<const ListView*>(&control)) {
    const std::string_view from = arguments.Next();
    const std::string_view count = arguments.Next();
    const std::optional<int> first_row = from.empty() ? 1 : Number(from);
    const std::optional<int> rows = count.empty() ? std::numeric_limits<int>::max() : Number(count);
    if (!first_row || *first_row < 1 || !rows || *rows < 0)
      Refuse("usage: show LIST [FROM [COUNT]]");
    return {.next = Next::kOutput,
            .output = ListText(*list, *first_row, *rows, context.list_separator)};
  }
  std::string text = Displayable(ControlText(control));
  if (!control.IsShown()) {
    text += " (not shown)";
  } else if (!control.Enabled()) {
    text += " (disabled)";
  }
  return {.next = Next::kOutput, .output = text + "\n"};
}

CommandResult Close(Arguments, const Context& context) {
  const bool dialog = context.desk.Dialog() != nullptr;
  return {.next = dialog ? Next::kCloseDialog : Next::kCloseMain, .output = {}};
}

CommandResult Quit(Arguments, const Context&) { return {.next = Next::kCloseMain, .output = {}}; }

CommandResult Help(Arguments arguments, const Context&);

constexpr std::array kCommands = {
    Command{"click", "click NAME", "click a button, a page button, a check box, a text", Click},
    Command{"tick", "tick LIST ROW|A-B|all", "set check marks of a list, or a check box", Tick},
    Command{"untick", "untick LIST ROW|A-B|all", "clear them", Untick},
    Command{"select", "select LIST ROW", "click a row, by its number, key or text", Select},
    Command{"open", "open LIST ROW", "double-click a row", Open},
    Command{"press", "press LIST column N", "click the heading of a column", Press},
    Command{"page", "page LIST next|back|first|last|ROW", "scroll a list", Scroll},
    Command{"show", "show [NAME [FROM [COUNT]]]",
            "the page again, or all of one control: a list with every row and its full texts",
            Show},
    Command{"close", "close", "close the topmost window", Close},
    Command{"quit", "quit", "close the main window, which ends the program", Quit},
    Command{"help", "help [COMMAND]", "this list", Help},
};

void AddHelp(std::string& text, const Command& command) {
  constexpr std::size_t kUsageWidth = 38;
  std::string usage = "  " + std::string(command.usage);
  usage.resize(std::max(usage.size() + 1, kUsageWidth), ' ');
  text += usage + std::string(command.help) + "\n";
}

CommandResult Help(Arguments arguments, const Context&) {
  std::string text;
  for (const Command& command : kCommands) {
    if (arguments.IsEmpty() || IsSameWord(arguments.Rest(), command.name)) AddHelp(text, command);
  }
  if (text.empty()) Refuse("there is no command " + std::string(arguments.Rest()));
  return {.next = Next::kOutput, .output = text};
}

}  // namespace

CommandResult RunCommand(std::string_view line, Desk& desk, std::string_view list_separator) {
  Arguments arguments(line);
  if (arguments.IsEmpty() || arguments.Rest().front() == '#') return {};
  const std::string_view name = arguments.Next();
  for (const Command& command : kCommands) {
    if (IsSameWord(name, command.name)) {
      return command.run(arguments, {.desk = desk, .list_separator = list_separator});
    }
  }
  Refuse("there is no command " + std::string(name) + "; \"help\" lists them");
}

}  // namespace tidemark
