// The section [windows] of win.ini, which stands in the user's registry (the platform's
// IniFileMapping). Nothing of it is read from the file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/winapi.h"

namespace tidemark::hosted {

// Of a file with that name in any folder, as on the platform. The section may be null.
bool IsMapped(std::string_view path, LPCSTR section);

std::vector<std::string> MappedNames();
// No value when there is none, or it is no text.
std::optional<std::string> MappedValue(LPCSTR name);
// Null texts delete: the value, or without a name the whole section.
LONG WriteMapped(LPCSTR name, LPCSTR text);

}  // namespace tidemark::hosted
