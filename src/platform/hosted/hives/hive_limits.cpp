#include "platform/hosted/hives/hive_limits.h"

#include "platform/hosted/registry_limits.h"

namespace tidemark::hosted {
namespace {

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
  // In young hives longer data would have to be cut in segments; in others a cell of a megabyte is
  // more than the library makes. A text is up to twice as long in a hive.
  constexpr std::size_t kLongestCell = 900'000;
  return 2 * size_bytes <= (young ? kHiveSegment : kLongestCell);
}

std::uint8_t LimitsByValue(const HiveCells& cells, const HiveValue& value, std::string_view name) {
  // Every value is written anew with any other of its key, and long data in one piece.
  if (value.size_bytes > kHiveSegment && cells.minor_version() > 3) return kValuesStay | kTreeStays;
  return CanNameInHive(name) ? 0 : kValuesStay;
}

}  // namespace tidemark::hosted
