// A modal box that asks for one line of text.
#pragma once

#include <string>
#include <string_view>

#include "desktop/win32/resources.h"
#include "platform/winapi.h"

namespace tidemark {

// Returns when the person has answered: what was typed, or empty when it was cancelled, the owner
// was destroyed or EndModalLoops was called. The owner may be null.
std::string AskForText(HWND owner, const Resources& resources, std::string_view prompt,
                       std::string_view title, std::string_view default_text);

}  // namespace tidemark
