// What a write to a hive may not touch.
#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_set>

namespace tidemark::hosted {

// Whether each key that is in both hives has the security, class and flags that it had, and, but
// for those keys of the old one that are named by their offsets, its time. Both were checked.
bool KeepsWhatKeysHave(std::string_view old_hive, std::string_view new_hive,
                       const std::unordered_set<std::uint32_t>& touched);

}  // namespace tidemark::hosted
