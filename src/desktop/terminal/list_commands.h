// The commands on the rows of lists and trees.
#pragma once

#include "desktop/terminal/command_words.h"

namespace tidemark {

CommandResult Tick(Arguments arguments, const Context& context);
CommandResult Untick(Arguments arguments, const Context& context);
CommandResult Select(Arguments arguments, const Context& context);
CommandResult Open(Arguments arguments, const Context& context);
CommandResult ContextMenu(Arguments arguments, const Context& context);
CommandResult Press(Arguments arguments, const Context& context);
CommandResult Scroll(Arguments arguments, const Context& context);
CommandResult Show(Arguments arguments, const Context& context);

}  // namespace tidemark
