// What a person types at the terminal: a command a line, acting on controls by their names (letter
// case ignored) as the mouse would: what a person could not click is refused.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "desktop/terminal/desk.h"

namespace tidemark {

// A command that can't be carried out; what() is one line that says why.
class CommandRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct CommandResult {
  enum class Next {
    kPage,         // the page that is up is shown again if it has changed
    kRepeatPage,   // it is shown in any case
    kOutput,       // the output is shown instead
    kCloseDialog,  // the topmost window is closed
    kCloseMain,
    kWait,  // time passes, by wait_ms
  };
  Next next = Next::kPage;
  std::string output;
  std::uint32_t wait_ms = 0;
};

// Carries out one line; it returns when the handlers of what was clicked have returned, which takes
// as long as a scan or a repair takes. An empty line and one that begins with # do nothing.
// `list_separator` stands between the columns of a list that is shown as a whole.
// Throws CommandRefused; nothing was changed then.
CommandResult RunCommand(std::string_view line, Desk& desk, std::string_view list_separator);

}  // namespace tidemark
