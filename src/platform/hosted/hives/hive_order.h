// The order of a key's sub-keys in a hive, and the hints by which the platform finds one: the
// library that writes hives compares names as small letters, and knows no letters but ASCII's.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>

namespace tidemark::hosted {

// Puts the entries of the key's lists in the platform's order, and those of sub-keys that the
// library has made with their hints. Throws HiveFault.
void OrderSubKeys(std::string& hive, std::uint32_t key,
                  const std::unordered_set<std::uint32_t>& made);

}  // namespace tidemark::hosted
