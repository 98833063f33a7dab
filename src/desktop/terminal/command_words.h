// What the commands have in common: the words of a line, and the controls that they name.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "desktop/terminal/commands.h"
#include "desktop/terminal/desk.h"

namespace tidemark {

// What stands behind the command's word, taken off word by word.
class Arguments {
 public:
  explicit Arguments(std::string_view text);

  bool IsEmpty() const { return text_.empty(); }
  std::string_view Rest() const { return text_; }
  std::string_view Next();

 private:
  std::string_view text_;
};

struct Context {
  Desk& desk;
  std::string_view list_separator;
};

// Throws CommandRefused with the reason, made displayable.
[[noreturn]] void Refuse(const std::string& reason);

// Letter case ignored.
bool IsSameWord(std::string_view left, std::string_view right);

// Nothing for a text that is no whole number.
std::optional<int> Number(std::string_view text);

// The control of that name. Refused when there is none.
Control& Named(std::string_view name, const Context& context);

// The same, and a person can reach it with the mouse now. Refused when it is hidden or disabled, or
// its window is minimised.
Control& Reachable(std::string_view name, const Context& context);

}  // namespace tidemark
