#include "platform/hosted/hives/hive_order.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "platform/exact_text.h"
#include "platform/hosted/hives/hive_records.h"
#include "platform/letter_case.h"

namespace tidemark::hosted {
namespace {

constexpr std::size_t kCellHeader = 4;
constexpr std::size_t kListHeader = 4;

struct Entry {
  std::uint32_t key;
  std::uint32_t hint;  // where the list has some
  HiveName name;
};

struct List {
  std::size_t start;  // of its entries in the file
  std::size_t count;
  std::size_t step;
  bool hashed;
};

std::string Utf16(const HiveName& name, bool capitals) {
  std::string text;
  name.To(text);
  std::string units;
  AppendAsUtf16(capitals ? UpperCase(text) : text, units);
  return units;
}

// Of a list with hashes ("lh").
std::uint32_t HashOf(const HiveName& name) {
  const std::string units = Utf16(name, true);
  std::uint32_t hash = 0;
  for (std::size_t i = 0; i < units.size(); i += 2) hash = hash * 37 + HiveNumber16(units, i);
  return hash;
}

// Of a list with the first four characters ("lf"): none where one of them has more than 8 bits.
std::uint32_t HintOf(const HiveName& name) {
  const std::string units = Utf16(name, false);
  std::uint32_t hint = 0;
  for (std::size_t i = 0; i < 4 && 2 * i < units.size(); ++i) {
    const std::uint32_t unit = HiveNumber16(units, 2 * i);
    if (unit > 0xFF) return 0;
    hint |= unit << (8 * i);
  }
  return hint;
}

List ReadList(HiveCells& cells, std::uint32_t at) {
  const std::string_view cell = cells.At(at, "no list of sub-keys");
  const bool hashed = cell.starts_with("lh");
  return {HiveFileOffset(at) + kCellHeader + kListHeader, HiveNumber16(cell, 2),
          hashed || cell.starts_with("lf") ? 8U : 4U, hashed};
}

// Those that hold the entries themselves, in their order.
std::vector<List> ReadLists(HiveCells& cells, const HiveKey& key) {
  std::vector<List> lists;
  if (key.sub_keys == 0) return lists;
  const std::string_view top = cells.At(key.sub_key_list, "no list of sub-keys");
  if (!top.starts_with("ri")) return {ReadList(cells, key.sub_key_list)};
  for (std::size_t i = 0; i < HiveNumber16(top, 2); ++i) {
    lists.push_back(ReadList(cells, HiveNumber32(top, kListHeader + 4 * i)));
  }
  return lists;
}

}  // namespace

void OrderSubKeys(std::string& hive, std::uint32_t key,
                  const std::unordered_set<std::uint32_t>& made) {
  HiveCells cells(hive);
  const std::vector<List> lists = ReadLists(cells, ReadHiveKey(cells, key));
  std::vector<Entry> entries;
  for (const List& list : lists) {
    for (std::size_t i = 0; i < list.count; ++i) {
      const std::size_t at = list.start + i * list.step;
      const std::uint32_t sub_key = HiveNumber32(hive, at);
      const HiveName name = ReadHiveKey(cells, sub_key).name;
      std::uint32_t hint = list.step > 4 ? HiveNumber32(hive, at + 4) : 0;
      if (made.contains(sub_key)) hint = list.hashed ? HashOf(name) : HintOf(name);
      entries.push_back({sub_key, hint, name});
    }
  }
  std::sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
    return CompareHiveNames(left.name, right.name) < 0;
  });
  auto next = entries.begin();
  for (const List& list : lists) {
    for (std::size_t i = 0; i < list.count; ++i, ++next) {
      const std::array<std::uint32_t, 2> numbers = {next->key, next->hint};
      std::memcpy(hive.data() + list.start + i * list.step, numbers.data(), list.step);
    }
  }
}

}  // namespace tidemark::hosted
