#include "platform/hosted/hives/hive_log.h"

#include "platform/hosted/hives/hive_records.h"

namespace tidemark::hosted {
namespace {

constexpr std::size_t kFirstEntry = 512;
constexpr std::size_t kEntryHeader = 40;
constexpr std::size_t kEntryAlignment = 512;
constexpr std::uint32_t kEntriesLog = 6;

// The numbers go around.
bool IsLater(std::uint32_t number, std::uint32_t than) {
  return static_cast<std::int32_t>(number - than) > 0;
}

}  // namespace

bool LogHoldsMore(std::string_view log, std::uint32_t written) {
  if (!IsHiveBase(log)) return false;
  const HiveBase base = ReadHiveBase(log);
  if (!base.checksum_right) return false;
  // The older form holds one write, the newer one entry for each; the hive's number is one more
  // than that of the last entry which is in the hive.
  if (base.type != kEntriesLog) return IsLater(base.sequence, written);
  for (std::size_t at = kFirstEntry; at + kEntryHeader <= log.size();) {
    const std::string_view entry = log.substr(at);
    if (!entry.starts_with("HvLE")) break;
    const std::size_t size = HiveNumber32(entry, 4);
    if (size < kEntryAlignment || size % kEntryAlignment != 0 || size > entry.size()) break;
    if (!IsLater(written, HiveNumber32(entry, 12))) return true;
    at += size;
  }
  return false;
}

}  // namespace tidemark::hosted
