// The platform's folder dialog: the one of its file dialogs, or the tree of folders of older
// systems.
#pragma once

#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark {

// Returns when the person has answered: the path of the chosen folder, or empty when it was
// cancelled or the choice has no path in the file system.
std::string AskForFolder(HWND owner, std::string_view title);

}  // namespace tidemark
