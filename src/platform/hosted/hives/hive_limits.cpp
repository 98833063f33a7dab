#include "platform/hosted/hives/hive_limits.h"

#include "platform/hosted/registry_limits.h"

namespace tidemark::hosted {
namespace {

// With more the library fails: it makes no cell of a megabyte, and lists 70,000 sub-keys and
// 110,000 values of a key. What can be added until then is left out of it.
constexpr std::size_t kLongestCell = 900'000;
constexpr std::uint32_t kMostSubKeys = 60'000;
constexpr std::uint32_t kMostValues = 100'000;

// A half of a surrogate pair as UTF-8 has no other reading: ED A0 to ED BF.
bool HasHalfPair(std::string_view name) {
  for (std::size_t i = 0; (i = name.find('\xED', i)) != std::string_view::npos; ++i) {
    if (i + 1 < name.size() && static_cast<unsigned char>(name[i + 1]) >= 0xA0) return true;
  }
  return false;
}

}  // namespace

bool CanNameInHive(std::string_view name) {
  return name.find('\0') == std::string_view::npos && !HasHalfPair(name);
}

bool FitsInHive(std::size_t size_bytes, bool young) {
  // In young hives longer data would have to be cut in segments.
  return size_bytes <= (young ? kHiveSegment : kLongestCell);
}

std::uint8_t LimitsByNumbers(const HiveKey& key) {
  unsigned limits = 0;
  if (key.sub_keys > kMostSubKeys) limits |= kSubKeysStay | kNoNewKeys | kTreeStays;
  if (key.values > kMostValues) limits |= kValuesStay | kTreeStays;
  return static_cast<std::uint8_t>(limits);
}

std::uint8_t LimitsByValue(const HiveCells& cells, const HiveValue& value, std::string_view name) {
  // Every value is written anew with any other of its key, and long data in one piece.
  const std::uint32_t longest = cells.minor_version() > 3 ? kHiveSegment : kLongestCell;
  if (value.size_bytes > longest) return kValuesStay | kTreeStays;
  return CanNameInHive(name) ? 0 : kValuesStay;
}

}  // namespace tidemark::hosted
