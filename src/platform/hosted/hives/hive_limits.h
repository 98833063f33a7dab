// What the library that writes hives can't do, told before anything is written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/hosted/hives/hive_records.h"

namespace tidemark::hosted {

// All of registry_limits.h. For the key by the numbers of what it holds.
std::uint8_t LimitsByNumbers(const HiveKey& key);
// For the key that holds the value. `name` is the value's, as UTF-8.
std::uint8_t LimitsByValue(const HiveCells& cells, const HiveValue& value, std::string_view name);
// Of a key or value.
bool CanNameInHive(std::string_view name);
// Data that takes so many bytes there; of a hive of version 1.4 or later.
bool FitsInHive(std::size_t size_bytes, bool young);

}  // namespace tidemark::hosted
