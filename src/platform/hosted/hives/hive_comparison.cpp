#include "platform/hosted/hives/hive_comparison.h"

#include <vector>

#include "platform/hosted/hives/hive_records.h"

namespace tidemark::hosted {
namespace {

std::string_view Security(HiveCells& cells, const HiveKey& key) {
  constexpr std::size_t kSize = 16;
  constexpr std::size_t kDescriptor = 20;
  const std::string_view record = cells.At(key.security, "no security record");
  return record.substr(kDescriptor, HiveNumber32(record, kSize));
}

class Comparison {
 public:
  Comparison(std::string_view old_hive, std::string_view new_hive,
             const std::unordered_set<std::uint32_t>& touched)
      : old_(old_hive), new_(new_hive), touched_(touched) {}

  bool Same(const HiveKey& before, const HiveKey& after) {
    if (before.flags != after.flags || Security(old_, before) != Security(new_, after) ||
        ReadHiveClass(old_, before) != ReadHiveClass(new_, after)) {
      return false;
    }
    if (before.time != after.time && !touched_.contains(before.offset)) return false;
    std::vector<std::uint32_t> old_keys;
    std::vector<std::uint32_t> new_keys;
    ReadHiveSubKeys(old_, before, old_keys);
    ReadHiveSubKeys(new_, after, new_keys);
    std::size_t next = 0;
    for (const std::uint32_t offset : old_keys) {
      const HiveKey old_key = ReadHiveKey(old_, offset);
      int order = 1;
      for (; next < new_keys.size(); ++next) {
        const HiveKey new_key = ReadHiveKey(new_, new_keys[next]);
        order = CompareHiveNames(new_key.name, old_key.name);
        if (order == 0 && !Same(old_key, new_key)) return false;
        if (order > 0) break;
      }
    }
    return true;
  }

 private:
  HiveCells old_;
  HiveCells new_;
  const std::unordered_set<std::uint32_t>& touched_;
};

}  // namespace

bool KeepsWhatKeysHave(std::string_view old_hive, std::string_view new_hive,
                       const std::unordered_set<std::uint32_t>& touched) {
  HiveCells old_cells(old_hive);
  HiveCells new_cells(new_hive);
  return Comparison(old_hive, new_hive, touched)
      .Same(ReadHiveKey(old_cells, ReadHiveBase(old_hive).root),
            ReadHiveKey(new_cells, ReadHiveBase(new_hive).root));
}

}  // namespace tidemark::hosted
