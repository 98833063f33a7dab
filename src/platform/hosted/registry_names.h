// Names of the registry: comparing them as the platform sorts them.
#pragma once

#include <cstdint>
#include <string_view>

namespace tidemark::hosted {

// Negative, 0, positive, in the order of the capitals' 16-bit code units.
int CompareNames(std::string_view left, std::string_view right);
bool SameName(std::string_view left, std::string_view right);
// Equal for names that differ in case alone.
std::uint32_t HashName(std::string_view name);

}  // namespace tidemark::hosted
