#include "desktop/terminal/command_words.h"

#include <charconv>

#include "desktop/terminal/display_text.h"
#include "platform/letter_case.h"
#include "toolkit/covering.h"

namespace tidemark {
namespace {

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
}

const Form* WindowOf(const Control& control) {
  const Control* outermost = &control;
  while (outermost->Container() != nullptr) outermost = outermost->Container();
  return dynamic_cast<const Form*>(outermost);
}

}  // namespace

Arguments::Arguments(std::string_view text) : text_(Trimmed(text)) {}

std::string_view Arguments::Next() {
  const std::string_view word = text_.substr(0, text_.find_first_of(" \t"));
  text_ = Trimmed(text_.substr(word.size()));
  return word;
}

void Refuse(const std::string& reason) { throw CommandRefused(Displayable(reason)); }

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

Control& Reachable(std::string_view name, const Context& context) {
  Control& control = Named(name, context);
  if (!CanBeSeen(control)) Refuse(control.Name() + " is not shown");
  const Form* window = WindowOf(control);
  if (window != nullptr && window->State() == WindowState::kMinimized) {
    Refuse(control.Name() + " is not shown: the window is minimised");
  }
  if (!CanBeReached(control)) Refuse(control.Name() + " is disabled");
  return control;
}

}  // namespace tidemark
