#include "platform/hosted/hives/security_ring.h"

#include <algorithm>

namespace tidemark::hosted {
namespace {

constexpr const char* kNoRecord = "no security record where one should be";
constexpr const char* kBroken = "the ring of security records is broken";
constexpr std::size_t kForward = 4;
constexpr std::size_t kBack = 8;
constexpr std::size_t kCount = 12;
constexpr std::size_t kDescriptorSize = 16;
constexpr std::size_t kDescriptor = 20;

}  // namespace

std::vector<SecurityRing::Users>::iterator SecurityRing::Find(std::uint32_t record) {
  return std::lower_bound(users_.begin(), users_.end(), record,
                          [](const Users& users, std::uint32_t at) { return users.record < at; });
}

void SecurityRing::AddUser(std::uint32_t record) {
  if (last_ >= users_.size() || users_[last_].record != record) {
    auto found = Find(record);
    if (found == users_.end() || found->record != record) found = users_.insert(found, {record, 0});
    last_ = static_cast<std::size_t>(found - users_.begin());
  }
  ++users_[last_].count;
}

std::string_view SecurityRing::Record(std::uint32_t offset) const {
  const std::string_view record = cells_.Shared(offset, kNoRecord);
  if (record.size() < kDescriptor || !record.starts_with("sk")) {
    throw HiveFault{kNoRecord, HiveFileOffset(offset)};
  }
  return record;
}

bool SecurityRing::CheckRecord(std::uint32_t offset, std::uint32_t previous, std::size_t* met) {
  const std::string_view record = Record(offset);
  cells_.At(offset, kNoRecord);
  if (HiveNumber32(record, kBack) != previous) throw HiveFault{kBroken, HiveFileOffset(offset)};
  if (HiveNumber32(record, kDescriptorSize) > record.size() - kDescriptor) {
    throw HiveFault{"a security record runs over the end of its cell", HiveFileOffset(offset)};
  }
  const auto users = Find(offset);
  if (users == users_.end() || users->record != offset) return false;
  ++*met;
  return HiveNumber32(record, kCount) < users->count;
}

bool SecurityRing::Check() {
  if (users_.empty()) return true;
  const std::uint32_t first = users_.front().record;
  std::uint32_t previous = HiveNumber32(Record(first), kBack);
  std::uint32_t record = first;
  std::size_t met = 0;
  bool counted = true;
  do {
    if (CheckRecord(record, previous, &met)) counted = false;
    previous = record;
    record = HiveNumber32(Record(record), kForward);
  } while (record != first);
  if (HiveNumber32(Record(first), kBack) != previous || met != users_.size()) {
    throw HiveFault{kBroken, HiveFileOffset(first)};
  }
  return counted;
}

}  // namespace tidemark::hosted
