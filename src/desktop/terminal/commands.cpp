#include "desktop/terminal/commands.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "desktop/terminal/command_words.h"
#include "desktop/terminal/list_commands.h"
#include "toolkit/access_key.h"
#include "toolkit/covering.h"
#include "toolkit/text_box.h"

namespace tidemark {
namespace {

using Next = CommandResult::Next;

struct Command {
  std::string_view name;
  std::string_view usage;
  std::string_view help;
  CommandResult (*run)(Arguments arguments, const Context& context);
};

// The control may be gone with its window when its handler returns.
CommandResult Click(Arguments arguments, const Context& context) {
  Control& control = Reachable(arguments.Next(), context);
  auto* clickable = dynamic_cast<ClickControl*>(&control);
  if (clickable == nullptr) Refuse(control.Name() + " can't be clicked; see \"help select\"");
  clickable->Click();
  return {};
}

CommandResult Type(Arguments arguments, const Context& context) {
  Control& control = Reachable(arguments.Next(), context);
  auto* box = dynamic_cast<TextBox*>(&control);
  if (box == nullptr) Refuse(control.Name() + " is no text box");
  if (box->Locked()) Refuse(control.Name() + " is locked");
  box->SetText(arguments.Rest());
  return {};
}

CommandResult Tray(Arguments arguments, const Context& context) {
  const bool left = IsSameWord(arguments.Rest(), "left");
  if (!left && !IsSameWord(arguments.Rest(), "right")) Refuse("usage: tray left or tray right");
  if (context.desk.tray.empty()) Refuse("there is no tray icon");
  ClickTray(*context.desk.main_window, left ? TrayClick::kLeft : TrayClick::kRight);
  return {};
}

CommandResult Wait(Arguments arguments, const Context&) {
  constexpr double kLongest_s = 31.0 * 24 * 60 * 60;
  const std::string_view text = arguments.Rest();
  double seconds = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  if (error != std::errc() || end != text.data() + text.size() || !(seconds >= 0) ||
      seconds > kLongest_s) {
    Refuse("usage: wait SECONDS");
  }
  return {.next = Next::kWait, .output = {}, .wait_ms = static_cast<std::uint32_t>(seconds * 1000)};
}

CommandResult Minimise(Arguments, const Context& context) {
  Form& window = *context.desk.main_window;
  if (!window.Visible()) Refuse("the window is hidden");
  window.SetState(WindowState::kMinimized);
  return {};
}

// As its button in the task bar; a hidden window has none.
CommandResult Restore(Arguments, const Context& context) {
  Form& window = *context.desk.main_window;
  if (!window.Visible()) Refuse("the window is hidden; see \"help tray\"");
  window.SetState(WindowState::kNormal);
  return {};
}

CommandResult Close(Arguments, const Context& context) {
  const Form* dialog = context.desk.Dialog();
  if (dialog != nullptr && dialog->IsQuestion()) Refuse("the question has to be answered");
  return {.next = dialog != nullptr ? Next::kCloseDialog : Next::kCloseMain, .output = {}};
}

CommandResult Quit(Arguments, const Context&) { return {.next = Next::kCloseMain, .output = {}}; }

CommandResult Help(Arguments arguments, const Context&);

constexpr std::array kCommands = {
    Command{"click", "click NAME", "a button, a tab, a check box, an option", Click},
    Command{"tick", "tick LIST ROW|A-B|all", "set check marks, or a check box", Tick},
    Command{"untick", "untick LIST ROW|A-B|all", "clear them", Untick},
    Command{"select", "select LIST ROW", "click a row, by its number, key or text", Select},
    Command{"open", "open LIST ROW", "double-click a row", Open},
    Command{"menu", "menu LIST [ROW]", "the menu of a row", ContextMenu},
    Command{"press", "press LIST column N", "click the heading of a column", Press},
    Command{"page", "page LIST next|back|first|last|ROW", "scroll a list", Scroll},
    Command{"type", "type NAME TEXT", "fill a text box", Type},
    Command{"show", "show [NAME [FROM [COUNT]]]", "the page, or a control with all its text", Show},
    Command{"tray", "tray left|right", "click the tray icon", Tray},
    Command{"wait", "wait SECONDS", "let time pass, for a schedule", Wait},
    Command{"minimise", "minimise", "make the window small", Minimise},
    Command{"restore", "restore", "and normal again", Restore},
    Command{"close", "close", "close the topmost window", Close},
    Command{"quit", "quit", "close the main window, which ends it", Quit},
    Command{"help", "help [COMMAND]", "this list", Help},
};

constexpr std::string_view kHelpOnQuestions =
    "A question takes the next line. Yes or no: yes, y, no, n. A text or a folder:\n"
    "as typed; = takes the text that is shown, an empty line cancels. A menu: the\n"
    "number, name or text of an item, an empty line for none.\n";

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
  if (arguments.IsEmpty()) text += kHelpOnQuestions;
  return {.next = Next::kOutput, .output = text};
}

// The button of a question in front that the line names by its access key or its caption.
CommandButton* AnswerIn(const Form* dialog, std::string_view line) {
  if (dialog == nullptr || !dialog->IsQuestion()) return nullptr;
  for (Control* control : dialog->Controls()) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button == nullptr || !CanBeReached(*button)) continue;
    const ShownCaption caption = ShowCaption(button->Caption().View());
    if (IsSameWord(line, caption.Key()) || IsSameWord(line, caption.text)) return button;
  }
  return nullptr;
}

}  // namespace

CommandResult RunCommand(std::string_view line, Desk& desk, std::string_view list_separator) {
  Arguments arguments(line);
  if (arguments.IsEmpty() || arguments.Rest().front() == '#') return {};
  if (CommandButton* answer = AnswerIn(desk.Dialog(), arguments.Rest())) {
    answer->Click();
    return {};
  }
  const std::string_view name = arguments.Next();
  for (const Command& command : kCommands) {
    if (IsSameWord(name, command.name)) {
      return command.run(arguments, {.desk = desk, .list_separator = list_separator});
    }
  }
  Refuse("there is no command " + std::string(name) + "; \"help\" lists them");
}

}  // namespace tidemark
