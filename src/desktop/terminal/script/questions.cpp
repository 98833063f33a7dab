// What the front end for scripts asks and tells in a box below the page. The answer is the next
// line of the input. Time goes on meanwhile: timers tick.
#include <optional>
#include <utility>
#include <vector>

#include "desktop/terminal/command_words.h"
#include "desktop/terminal/display_text.h"
#include "desktop/terminal/script/command_front_end.h"
#include "toolkit/access_key.h"

namespace tidemark {
namespace {

constexpr int kFrame = 8;

std::string_view Mark(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kNone:
      return "";
    case MessageIcon::kInformation:
      return "(i) ";
    case MessageIcon::kExclamation:
      return "(!) ";
    case MessageIcon::kCritical:
      return "(x) ";
  }
  return "";
}

Lines Wrapped(std::string_view text, int width, std::string_view mark = {}) {
  const int indent = static_cast<int>(mark.size());
  Lines lines;
  for (const std::string& piece : Wrap(text, width - kFrame - indent)) {
    Line line(lines.empty() ? mark : std::string_view());
    lines.push_back(std::move(line.PadTo(indent).Add(piece)));
  }
  return lines;
}

// The items that a person sees in a menu.
std::vector<MenuItem*> ItemsOf(const Menu& menu) {
  std::vector<MenuItem*> items;
  for (Control* control : menu.Controls()) {
    auto* item = dynamic_cast<MenuItem*>(control);
    if (item != nullptr && item->Visible()) items.push_back(item);
  }
  return items;
}

// Items are counted from 1, without the separators.
Lines MenuLines(const std::vector<MenuItem*>& items) {
  Lines lines;
  int number = 0;
  for (const MenuItem* item : items) {
    if (item->IsSeparator()) {
      lines.emplace_back("   ────────");
      continue;
    }
    Line& line = lines.emplace_back(std::to_string(++number)).PadTo(3);
    line.Add(item->Name()).Add(" ");
    line.Add(WithoutAccessKey(item->Caption().View()));
    if (!item->Enabled()) line.Add(" (off)");
  }
  return lines;
}

// Null when the answer names none that can be chosen.
MenuItem* Chosen(const std::vector<MenuItem*>& items, std::string_view answer) {
  const std::optional<int> wanted = Number(answer);
  int number = 0;
  for (MenuItem* item : items) {
    if (item->IsSeparator()) continue;
    ++number;
    const bool named = wanted == number || IsSameWord(item->Name(), answer) ||
                       IsSameWord(WithoutAccessKey(item->Caption().View()), answer);
    if (named) return item->Enabled() ? item : nullptr;
  }
  return nullptr;
}

}  // namespace

std::optional<std::string> CommandFrontEnd::Ask(std::string_view title, Lines content,
                                                std::string_view hint) {
  if (!content.empty()) content.emplace_back();
  content.emplace_back(hint);
  PrintPage();
  Print(Boxed(title, content, kPageWidth));
  ConsoleInput input;
  while (input.kind != ConsoleInput::Kind::kLine && input.kind != ConsoleInput::Kind::kEnd) {
    input = WaitForInput();
    if (input.kind == ConsoleInput::Kind::kClose) CloseMain();
  }
  if (input.kind == ConsoleInput::Kind::kEnd) return std::nullopt;
  return input.line;
}

void CommandFrontEnd::ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) {
  Print(Boxed(title, Wrapped(text, kPageWidth, Mark(icon)), kPageWidth));
}

bool CommandFrontEnd::AskYesNo(std::string_view text, std::string_view title) {
  while (true) {
    const Lines content = Wrapped(text, kPageWidth, "(?) ");
    const std::optional<std::string> answer = Ask(title, content, "yes or no");
    if (!answer) return false;
    const std::string_view word = Arguments(*answer).Rest();
    if (IsSameWord(word, "yes") || IsSameWord(word, "y")) return true;
    if (IsSameWord(word, "no") || IsSameWord(word, "n")) return false;
    Refused("the question takes yes or no");
  }
}

std::string CommandFrontEnd::InputBox(std::string_view prompt, std::string_view title,
                                      std::string_view default_text) {
  Lines content = Wrapped(prompt, kPageWidth);
  if (!default_text.empty()) {
    for (Line& line : Wrapped(default_text, kPageWidth, "= ")) content.push_back(std::move(line));
  }
  const std::string_view hint = default_text.empty()
                                    ? "a text; an empty line cancels"
                                    : "a text, = for the one above; an empty line cancels";
  const std::string answer = Ask(title, std::move(content), hint).value_or("");
  return answer == "=" ? std::string(default_text) : answer;
}

std::string CommandFrontEnd::BrowseForFolder(std::string_view title) {
  return Ask(title, {}, "the path of a folder; an empty line cancels").value_or("");
}

void CommandFrontEnd::PopupMenu(Menu& menu) {
  while (true) {
    const std::vector<MenuItem*> items = ItemsOf(menu);
    const std::optional<std::string> answer =
        Ask(menu.Name(), MenuLines(items), "a number, name or text; an empty line for none");
    const std::string_view word = answer ? Arguments(*answer).Rest() : std::string_view();
    if (word.empty()) return;
    if (MenuItem* item = Chosen(items, word)) {
      item->Click();
      return;
    }
    Refused("the menu has no item " + std::string(word) + " that can be chosen");
  }
}

}  // namespace tidemark
