// What holds for the names, paths and types of the registry everywhere.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark {

// In 16-bit code units.
inline constexpr std::size_t kLongestKeyName = 256;
inline constexpr std::size_t kLongestValueName = 16383;

// The types whose data the 8-bit calls convert.
constexpr bool IsTextType(DWORD type) {
  return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

// Cuts the next part off a path: the text before the next backslash; parts that are empty are
// passed over. Empty at the end.
inline std::string_view NextPart(std::string_view& path) {
  while (!path.empty() && path.front() == '\\') path.remove_prefix(1);
  const std::string_view part = path.substr(0, path.find('\\'));
  path.remove_prefix(part.size());
  return part;
}

}  // namespace tidemark
