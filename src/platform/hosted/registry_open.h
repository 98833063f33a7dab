// Opening and making keys, as the 8-bit and the 16-bit calls both do it.
#pragma once

#include <string_view>

#include "platform/hosted/registry_call_checks.h"
#include "platform/winapi.h"

namespace tidemark::hosted {

inline constexpr REGSAM kMaximumAllowed = 0x02000000;

LONG OpenKeyAt(HKEY key, std::string_view path, PathLimit limit, REGSAM access, PHKEY result);
LONG CreateKeyAt(HKEY key, std::string_view path, PathLimit limit, REGSAM access, PHKEY result,
                 LPDWORD disposition);

}  // namespace tidemark::hosted
