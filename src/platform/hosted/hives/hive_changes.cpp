#include "platform/hosted/hives/hive_changes.h"

#include <string>

#include "platform/hosted/hives/hive_records.h"
#include "platform/hosted/hives/hive_text.h"
#include "platform/hosted/registry_names.h"

namespace tidemark::hosted {
namespace {

class Comparison {
 public:
  explicit Comparison(std::string_view hive)
      : cells_(hive), root_(ReadHiveKey(cells_, ReadHiveBase(hive).root)) {}

  HiveChanges Run(const RegistryKey& top) {
    Compare(root_, top);
    return std::move(changes_);
  }

 private:
  void Compare(const HiveKey& old_key, const RegistryKey& key) {
    if (!SameValues(old_key, key)) changes_.values.push_back({old_key.offset, &key});
    const std::size_t first = offsets_.size();
    ReadHiveSubKeys(cells_, old_key, offsets_);
    std::size_t next = 0;
    for (std::size_t i = first; i < offsets_.size(); ++i) {
      const HiveKey sub_key = ReadHiveKey(cells_, offsets_[i]);
      sub_key.name.To(name_);
      int order = 1;
      while (next < key.key_count() && (order = CompareNames(key.key(next).name(), name_)) < 0) {
        changes_.added.push_back({old_key.offset, &key.key(next++)});
      }
      if (next < key.key_count() && order == 0) {
        Compare(sub_key, key.key(next++));
      } else {
        changes_.deleted.push_back({sub_key.offset, old_key.offset});
      }
    }
    while (next < key.key_count()) changes_.added.push_back({old_key.offset, &key.key(next++)});
    offsets_.resize(first);
  }

  bool SameValues(const HiveKey& old_key, const RegistryKey& key) {
    if (old_key.values != key.value_count()) return false;
    const std::size_t first = offsets_.size();
    ReadHiveValues(cells_, old_key, offsets_);
    bool same = true;
    for (std::size_t i = first; same && i < offsets_.size(); ++i) {
      same = SameValue(ReadHiveValue(cells_, offsets_[i]), key.value(i - first));
    }
    offsets_.resize(first);
    return same;
  }

  bool SameValue(const HiveValue& old_value, const RegistryValue& value) {
    if (old_value.type != value.type()) return false;
    old_value.name.To(name_);
    if (name_ != value.name()) return false;
    const std::string_view bytes = ReadHiveData(cells_, old_value, joined_);
    const StoredData stored = DataFromHive(value.type(), bytes, text_);
    return stored.data == value.data() && stored.odd_byte == value.odd_byte();
  }

  HiveCells cells_;
  HiveKey root_;
  HiveChanges changes_;
  std::vector<std::uint32_t> offsets_;
  std::string name_;
  std::string joined_;
  std::string text_;
};

}  // namespace

HiveChanges FindHiveChanges(std::string_view hive, const RegistryKey& top) {
  return Comparison(hive).Run(top);
}

}  // namespace tidemark::hosted
