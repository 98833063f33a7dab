#include "tests/support/hive_maker.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "platform/exact_text.h"
#include "platform/hosted/hives/hive_records.h"
#include "platform/hosted/hives/hive_text.h"
#include "platform/letter_case.h"

namespace tidemark {
namespace {

using namespace hosted;

constexpr std::uint64_t kTime = 0x01D0000000000000;
constexpr std::size_t kBin = 4096;
constexpr std::size_t kLongestList = 500;

class Maker {
 public:
  explicit Maker(HiveMake make) : young_(make == HiveMake::kYoung) {}

  std::string Make(const RegistryKey& top) {
    security_ = Cell(std::string("sk\0\0", 4) + Numbers({0, 0, 0, 4}) + Numbers({0x80000001}));
    const std::uint32_t root = Key(top, 0, 0x2C);
    FillBin();
    Put(security_ + 8, security_);
    Put(security_ + 12, security_);
    Put(security_ + 16, keys_);
    std::string base = "regf" + Numbers({1, 1, 0, 0x01D00000, 1, young_ ? 5U : 3U, 0, 1, root,
                                         static_cast<std::uint32_t>(bins_.size()), 1});
    base.resize(508);
    base += Numbers({HiveChecksum(base)});
    base.resize(kHiveBaseSize);
    return base + bins_;
  }

 private:
  static std::string Numbers(std::initializer_list<std::uint32_t> numbers) {
    std::string bytes;
    for (const std::uint32_t number : numbers) {
      bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
    }
    return bytes;
  }

  static std::string Short(std::size_t number) {
    return Numbers({static_cast<std::uint32_t>(number)}).substr(0, 2);
  }

  void Put(std::size_t offset, std::uint32_t number) {
    std::memcpy(bins_.data() + offset, &number, sizeof number);
  }

  // What is left of the bin becomes a free cell.
  void FillBin() {
    if (bin_end_ == bins_.size()) return;
    const auto left = static_cast<std::uint32_t>(bin_end_ - bins_.size());
    bins_ += Numbers({left});
    bins_.resize(bin_end_);
  }

  std::uint32_t Cell(const std::string& content) {
    const std::size_t size = (content.size() + 4 + 7) / 8 * 8;
    if (size > bin_end_ - bins_.size()) {
      FillBin();
      const auto start = static_cast<std::uint32_t>(bins_.size());
      const std::size_t bin = (32 + size + kBin - 1) / kBin * kBin;
      bin_end_ = start + bin;
      bins_ += "hbin" + Numbers({start, static_cast<std::uint32_t>(bin), 0, 0, 0, 0, 0});
    }
    const auto offset = static_cast<std::uint32_t>(bins_.size());
    bins_ += Numbers({0U - static_cast<std::uint32_t>(size)}) + content;
    bins_.resize(offset + size);
    return offset;
  }

  struct Name {
    std::string bytes;
    bool eight_bit;
  };
  static Name NameOf(std::string_view text) {
    if (IsAscii(text)) return {std::string(text), true};
    Name name{{}, false};
    AppendAsUtf16(text, name.bytes);
    return name;
  }

  std::uint32_t Data(const std::string& data) {
    if (data.size() <= kHiveSegment || !young_) return Cell(data);
    std::string list;
    for (std::size_t at = 0; at < data.size(); at += kHiveSegment) {
      list += Numbers({Cell(data.substr(at, kHiveSegment) + Numbers({0}))});
    }
    return Cell("db" + Short(list.size() / 4) + Numbers({Cell(list)}));
  }

  std::uint32_t Value(const RegistryValue& value) {
    const Name name = NameOf(value.name());
    const std::string data = DataForHive(value);
    auto size = static_cast<std::uint32_t>(data.size());
    std::uint32_t place = kHiveNone;
    if (size > 4) {
      place = Data(data);
    } else {
      std::memcpy(&place, data.data(), data.size());
      size |= 0x80000000;
    }
    return Cell("vk" + Short(name.bytes.size()) +
                Numbers({size, place, value.type(), name.eight_bit ? 1U : 0U}) + name.bytes);
  }

  std::string Hint(std::string_view name) const {
    std::string capitals;
    AppendAsUtf16(UpperCase(name), capitals);
    std::uint32_t hash = 0;
    for (std::size_t i = 0; i < capitals.size(); i += 2)
      hash = hash * 37 + HiveNumber16(capitals, i);
    return young_ ? Numbers({hash}) : std::string();
  }

  std::uint32_t Key(const RegistryKey& key, std::uint32_t parent, std::uint32_t flags) {
    ++keys_;
    const Name name = NameOf(key.name());
    if (!name.eight_bit) flags &= ~0x20U;
    std::string values;
    for (std::size_t i = 0; i < key.value_count(); ++i) values += Numbers({Value(key.value(i))});
    const std::uint32_t value_list = values.empty() ? kHiveNone : Cell(values);
    const auto sub_keys = static_cast<std::uint32_t>(key.key_count());
    const std::uint32_t offset =
        Cell("nk" + Short(flags) +
             Numbers({0, static_cast<std::uint32_t>(kTime >> 32U), 0, parent, sub_keys, 0,
                      kHiveNone, kHiveNone, static_cast<std::uint32_t>(values.size() / 4),
                      value_list, security_, kHiveNone, 0, 0, 0, 0, 0}) +
             Short(name.bytes.size()) + Short(0) + name.bytes);
    if (sub_keys > 0) Put(offset + 4 + 28, SubKeys(key, offset));
    return offset;
  }

  std::uint32_t SubKeys(const RegistryKey& key, std::uint32_t parent) {
    const std::string kind = young_ ? "lh" : "li";
    std::string lists;
    for (std::size_t i = 0; i < key.key_count();) {
      std::string list;
      const std::size_t end = std::min(i + kLongestList, key.key_count());
      const std::size_t count = end - i;
      for (; i < end; ++i)
        list += Numbers({Key(key.key(i), parent, 0x20)}) + Hint(key.key(i).name());
      lists += Numbers({Cell(kind + Short(count) + list)});
    }
    if (lists.size() == 4) return HiveNumber32(lists, 0);
    return Cell("ri" + Short(lists.size() / 4) + lists);
  }

  bool young_;
  std::string bins_;
  std::size_t bin_end_ = 0;
  std::uint32_t security_ = 0;
  std::uint32_t keys_ = 0;
};

}  // namespace

std::string MakeHive(const RegistryKey& top, HiveMake make) { return Maker(make).Make(top); }

}  // namespace tidemark
