// Judges a hive before anything is read from it or written to it.
#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

#include "platform/hosted/hives/claimed_cells.h"
#include "platform/hosted/hives/hive_file.h"
#include "platform/hosted/hives/hive_log.h"
#include "platform/hosted/hives/security_ring.h"
#include "platform/hosted/registry_names.h"
#include "platform/registry_rules.h"

namespace tidemark::hosted {
namespace {

// The platform's limit, as of the registry in memory.
constexpr int kDeepest = 512;

// Walks every record that can be reached from the root. What is damage is thrown as HiveFault; what
// only makes a write unsafe is kept.
class StructureCheck {
 public:
  explicit StructureCheck(std::string_view file) : cells_(file), ring_(cells_) {}

  void Walk(std::uint32_t root) {
    const HiveKey key = ReadHiveKey(cells_, root);
    WalkKey(key, 1);
    if (!ring_.Check()) Doubt("a security record counts too few keys", root);
  }

  // The first thing that speaks against a write; `what` is null when nothing does.
  const HiveFault& doubt() const { return doubt_; }

 private:
  void Doubt(const char* what, std::uint32_t offset) {
    if (doubt_.what == nullptr) doubt_ = {what, HiveFileOffset(offset)};
  }

  // The library that writes frees the cell of a list even where nothing is in it.
  void CheckEmptyList(std::uint32_t list) {
    if (list == kHiveNone) return;
    try {
      cells_.At(list, "an empty list that is nowhere");
    } catch (const HiveFault& fault) {
      Doubt(fault.what, list);
    }
  }

  static void CheckName(const HiveName& name, std::size_t longest, std::uint32_t offset) {
    const std::size_t units = name.eight_bit ? name.bytes.size() : name.bytes.size() / 2;
    if ((!name.eight_bit && name.bytes.size() % 2 != 0) || units > longest) {
      throw HiveFault{"a name of impossible length", HiveFileOffset(offset)};
    }
  }

  void WalkKey(const HiveKey& key, int depth) {
    if (depth > kDeepest) throw HiveFault{"keys lie too deep", HiveFileOffset(key.offset)};
    ReadHiveClass(cells_, key);
    if (key.sub_keys == 0) CheckEmptyList(key.sub_key_list);
    if (key.values == 0) CheckEmptyList(key.value_list);
    ring_.AddUser(key.security);
    CheckValues(key);
    const std::size_t first = offsets_.size();
    ReadHiveSubKeys(cells_, key, offsets_);
    HiveName previous{};
    for (std::size_t i = first; i < offsets_.size(); ++i) {
      const HiveKey sub_key = ReadHiveKey(cells_, offsets_[i]);
      CheckSubKey(key, sub_key);
      const int order = i == first ? -1 : CompareHiveNames(previous, sub_key.name);
      if (order == 0) throw HiveFault{"two keys of one name", HiveFileOffset(sub_key.offset)};
      if (order > 0) Doubt("sub-keys that are not in order", key.offset);
      previous = sub_key.name;
      WalkKey(sub_key, depth + 1);
    }
    offsets_.resize(first);
  }

  void CheckSubKey(const HiveKey& parent, const HiveKey& key) {
    if (key.parent != parent.offset) {
      throw HiveFault{"a key names another parent", HiveFileOffset(key.offset)};
    }
    CheckName(key.name, kLongestKeyName, key.offset);
    key.name.To(name_);
    if (name_.empty() || name_.find('\\') != std::string::npos) {
      throw HiveFault{"a key's name is none", HiveFileOffset(key.offset)};
    }
  }

  void CheckValues(const HiveKey& key) {
    const std::size_t first = offsets_.size();
    ReadHiveValues(cells_, key, offsets_);
    hashes_.clear();
    for (std::size_t i = first; i < offsets_.size(); ++i) {
      const HiveValue value = ReadHiveValue(cells_, offsets_[i]);
      CheckName(value.name, kLongestValueName, value.offset);
      const bool in_one = ReadHiveData(cells_, value, joined_).data() != joined_.data();
      if (in_one && value.size_bytes > kHiveSegment && cells_.minor_version() > 3) {
        Doubt("long data that is not in segments", value.data);
      }
      // The library that writes would free whatever cell it names.
      if (value.size_bytes == 0 && !value.inside) Doubt("an empty value's data", value.offset);
      value.name.To(name_);
      hashes_.push_back(HashName(name_));
    }
    // Two hashes may be equal by chance; that a key is not written to then is no loss.
    std::sort(hashes_.begin(), hashes_.end());
    if (std::adjacent_find(hashes_.begin(), hashes_.end()) != hashes_.end()) {
      Doubt("two values of one name", key.offset);
    }
    offsets_.resize(first);
  }

  ClaimedCells cells_;
  SecurityRing ring_;
  HiveFault doubt_{nullptr, 0};
  std::vector<std::uint32_t> offsets_;  // of the sub-keys and values on the way to the root
  std::vector<std::uint32_t> hashes_;
  std::string name_;
  std::string joined_;
};

std::string At(const HiveFault& fault) {
  std::array<char, 32> offset{};
  std::snprintf(offset.data(), offset.size(), " (at 0x%llx)",
                static_cast<unsigned long long>(fault.offset));
  return fault.what + std::string(offset.data());
}

HiveReport CheckStructure(std::string_view hive, const HiveBase& base) {
  try {
    StructureCheck check(hive);
    check.Walk(base.root);
    if (check.doubt().what == nullptr) return {};
    return {HiveState::kReadOnly, "can be read, not written: " + At(check.doubt())};
  } catch (const HiveFault& fault) {
    return {HiveState::kDamaged, "is damaged: " + At(fault)};
  }
}

}  // namespace

HiveReport CheckHive(std::string_view hive, const std::vector<std::string>& logs) {
  if (!IsHiveBase(hive)) return {HiveState::kNoHive, "is no registry hive"};
  const HiveBase base = ReadHiveBase(hive);
  const HiveReport dirty{HiveState::kDirty, "was not closed cleanly"};
  const bool in_between = base.sequence != base.written;
  if (!base.checksum_right) {
    // A write that was cut off may have left it so.
    if (in_between) return dirty;
    return {HiveState::kDamaged, "is damaged: its checksum is wrong"};
  }
  if (base.type != 0) return {HiveState::kNoHive, "is no registry hive, but the log of one"};
  if (base.major_version != 1 || base.minor_version < 3 || base.minor_version > 5) {
    return {HiveState::kNoHive, "is a registry hive of an unknown version, " +
                                    std::to_string(base.major_version) + "." +
                                    std::to_string(base.minor_version)};
  }
  if (hive.size() < kHiveBaseSize || hive.size() - kHiveBaseSize < base.bins_size_bytes) {
    return {HiveState::kDamaged, "is damaged: its end is missing"};
  }
  const auto holds_more = [&base](const std::string& log) {
    return LogHoldsMore(log, base.written);
  };
  if (in_between || std::any_of(logs.begin(), logs.end(), holds_more)) return dirty;
  return CheckStructure(hive, base);
}

}  // namespace tidemark::hosted
