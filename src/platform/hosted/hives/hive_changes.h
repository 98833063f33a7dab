// What a key of the registry in memory holds otherwise than the hive that it was loaded from.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/hosted/registry_key.h"

namespace tidemark::hosted {

struct HiveChanges {
  struct Key {
    std::uint32_t offset;  // of a key of the hive
    const RegistryKey* key;
  };
  struct Deleted {
    std::uint32_t offset;
    std::uint32_t parent;
  };

  std::vector<Key> values;       // all values of the hive's key are to be those of the other
  std::vector<Key> added;        // to be made below the hive's key, with all that it holds
  std::vector<Deleted> deleted;  // with all below them

  bool empty() const { return values.empty() && added.empty() && deleted.empty(); }
};

// Of a hive that was checked and whose sub-keys are in order.
HiveChanges FindHiveChanges(std::string_view hive, const RegistryKey& top);

}  // namespace tidemark::hosted
