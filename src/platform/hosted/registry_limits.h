// What can't be changed in a key because the file that holds it can't take the change.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/hosted/registry_key.h"

namespace tidemark::hosted {

enum RegistryKeyLimit : std::uint8_t {
  kValuesStay = 0x01,   // none can be set or deleted
  kSubKeysStay = 0x02,  // none can be deleted, but all with the key itself
  kTreeStays = 0x04,    // can't be deleted, nor what lies above it
  kNoNewKeys = 0x08,    // none can be made below it
  kAllStays = 0x0F,
  // Of a new key those of its parent hold:
  kInHive = 0x10,       // no names with a NUL, no data of a megabyte
  kInYoungHive = 0x20,  // no long data can be set
  kInherited = kInHive | kInYoungHive,
};

bool CanTakeKey(const RegistryKey& parent, std::string_view name);
// `data` as the registry keeps it.
bool CanTakeValue(const RegistryKey& key, std::string_view name, DWORD type, std::string_view data);
bool CanLoseValues(const RegistryKey& key);
// The key, with all below it.
bool CanLose(const RegistryKey& key);

}  // namespace tidemark::hosted
