// The platform's clipboard.
#pragma once

#include <string_view>

#include "platform/winapi.h"

namespace tidemark {

// Puts the text there in the place of what it held; another program may keep it closed, and then
// nothing happens.
void CopyToClipboard(HWND owner, std::string_view text);

}  // namespace tidemark
