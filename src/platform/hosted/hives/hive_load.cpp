#include <string>
#include <string_view>
#include <vector>

#include "platform/hosted/hives/hive_file.h"
#include "platform/hosted/hives/hive_limits.h"
#include "platform/hosted/hives/hive_records.h"
#include "platform/hosted/hives/hive_text.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_key.h"
#include "platform/hosted/registry_limits.h"

namespace tidemark::hosted {
namespace {

// Reads by itself and not with the library that writes: the library can't tell names that end in
// half a surrogate pair, cuts others at a NUL, and gives up on keys with very many sub-keys. What
// has been checked is as quickly read without it.
class Loader {
 public:
  Loader(std::string_view file, std::uint8_t limits_of_all)
      : cells_(file),
        root_(ReadHiveBase(file).root),
        limits_of_all_(static_cast<std::uint8_t>(
            limits_of_all | kInHive | (cells_.minor_version() > 3 ? kInYoungHive : 0))) {}

  void LoadRoot(RegistryKey& to) { Load(ReadHiveKey(cells_, root_), to); }

 private:
  void Load(const HiveKey& key, RegistryKey& to) {
    std::uint8_t limits = limits_of_all_ | LimitsByNumbers(key);
    const std::size_t first = offsets_.size();
    ReadHiveValues(cells_, key, offsets_);
    for (std::size_t i = first; i < offsets_.size(); ++i) LoadValue(offsets_[i], to, &limits);
    offsets_.resize(first);
    if (ReadHiveSubKeys(cells_, key, offsets_)) limits |= kSubKeysStay;
    for (std::size_t i = first; i < offsets_.size(); ++i) {
      const HiveKey sub_key = ReadHiveKey(cells_, offsets_[i]);
      sub_key.name.To(text_);
      // Of a key that can't be named no neighbour's place can be told either: what went from there
      // could not come back.
      const bool named = CanNameInHive(text_);
      RegistryKey& below = to.MakeKey(text_);
      Load(sub_key, below);
      if (!named) below.SetLimits(kInHive | kAllStays);
      if ((below.limits() & kTreeStays) != 0) limits |= kTreeStays;
      if (!named) limits |= kNoNewKeys | kSubKeysStay;
    }
    offsets_.resize(first);
    to.SetLimits(limits);
  }

  void LoadValue(std::uint32_t offset, RegistryKey& to, std::uint8_t* limits) {
    const HiveValue value = ReadHiveValue(cells_, offset);
    value.name.To(text_);
    *limits |= LimitsByValue(cells_, value, text_);
    const std::string_view bytes = ReadHiveData(cells_, value, joined_);
    const StoredData stored = DataFromHive(value.type, bytes, data_);
    to.SetValue(text_, value.type, stored.data, stored.odd_byte);
  }

  HiveCells cells_;
  std::uint32_t root_;
  std::uint8_t limits_of_all_;
  std::vector<std::uint32_t> offsets_;
  std::string text_;
  std::string joined_;
  std::string data_;
};

}  // namespace

void LoadHive(const HiveFile& hive, RegistryKey& top, bool writable) {
  if (!hive.report.readable()) throw HostedPcError(hive.path.string() + ": " + hive.report.why);
  const bool stays = !writable || !hive.report.writable();
  Loader loader(hive.bytes, stays ? kAllStays : 0);
  loader.LoadRoot(top);
}

}  // namespace tidemark::hosted
