#include "platform/hosted/registry_limits.h"

#include "platform/exact_text.h"
#include "platform/hosted/hives/hive_limits.h"
#include "platform/registry_rules.h"

namespace tidemark::hosted {
namespace {

bool Has(const RegistryKey& key, std::uint8_t limit) { return (key.limits() & limit) != 0; }

}  // namespace

bool CanTakeKey(const RegistryKey& parent, std::string_view name) {
  if (Has(parent, kNoNewKeys)) return false;
  return !Has(parent, kInHive) || CanNameInHive(name);
}

bool CanTakeValue(const RegistryKey& key, std::string_view name, DWORD type,
                  std::string_view data) {
  if (Has(key, kValuesStay)) return false;
  if (!Has(key, kInHive)) return true;
  // A text may have an odd byte behind it.
  const std::size_t size = IsTextType(type) ? 2 * Utf16Length(data) + 1 : data.size();
  return CanNameInHive(name) && FitsInHive(size, Has(key, kInYoungHive));
}

bool CanLoseValues(const RegistryKey& key) { return !Has(key, kValuesStay); }

bool CanLose(const RegistryKey& key) {
  return !Has(key, kTreeStays) && (key.parent() == nullptr || !Has(*key.parent(), kSubKeysStay));
}

}  // namespace tidemark::hosted
