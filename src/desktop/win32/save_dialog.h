// The platform's dialog for the name of a file that is to be written.
#pragma once

#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark {

// Returns when the person has answered, also whether a file may be replaced: the path, with an
// ending; empty when it was cancelled.
std::string AskForSaveFile(HWND owner, std::string_view title, std::string_view name);

}  // namespace tidemark
