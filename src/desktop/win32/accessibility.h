// What a screen reader says about a window that shows no text of its own.
#pragma once

#include <string_view>

#include "platform/winapi.h"

namespace tidemark {

// An "&" in the name stands before its access key and is not part of what is said. The role is one
// of the platform's ROLE_SYSTEM_ numbers; 0 leaves the one of the window's class. Where the system
// can't annotate windows, the name becomes the text of the window, unless its class shows that.
void SetAccessible(HWND window, std::string_view name, long role);
// Before an annotated window is destroyed.
void ForgetAccessible(HWND window);

}  // namespace tidemark
