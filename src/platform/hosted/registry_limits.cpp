#include "platform/hosted/registry_limits.h"

#include "platform/exact_text.h"
#include "platform/hosted/hives/hive_limits.h"

namespace tidemark::hosted {
namespace {

bool Has(const RegistryKey& key, std::uint8_t limit) { return (key.limits() & limit) != 0; }

}  // namespace

bool CanTakeKey(const RegistryKey& parent, std::string_view name) {
  if (Has(parent, kNoNewKeys)) return false;
  return !Has(parent, kInHive) || (CanNameInHive(name) && IsAscii(name));
}

bool CanTakeValue(const RegistryKey& key, std::string_view name, std::string_view data) {
  if (Has(key, kValuesStay)) return false;
  if (!Has(key, kInHive)) return true;
  return CanNameInHive(name) && FitsInHive(data.size(), Has(key, kInYoungHive));
}

bool CanLoseValues(const RegistryKey& key) { return !Has(key, kValuesStay); }

bool CanLose(const RegistryKey& key) {
  return !Has(key, kTreeStays) && (key.parent() == nullptr || !Has(*key.parent(), kSubKeysStay));
}

}  // namespace tidemark::hosted
