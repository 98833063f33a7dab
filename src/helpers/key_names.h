// Between the full text of a registry key ("HKEY_CLASSES_ROOT\CLSID\...") and its root handle and
// sub-key.
#pragma once

#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark {

// The root that the text before the first backslash names; null for another text, and for a text
// with no backslash.
HKEY StripHkey(std::string_view full_key);

// The name of a root; empty for another handle.
std::string_view HkeyText(HKEY root);

// What stands behind the first backslash; the whole text when there is none. An empty or blank
// sub-key gives "abcdefgh", so that no caller can ever mean a whole root.
std::string SplitSubKey(std::string_view full_key);

}  // namespace tidemark
