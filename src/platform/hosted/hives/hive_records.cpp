#include "platform/hosted/hives/hive_records.h"

#include <algorithm>
#include <cstring>

#include "platform/exact_text.h"
#include "platform/hosted/registry_names.h"

namespace tidemark::hosted {
namespace {

constexpr std::size_t kHiveBaseUsed = 512;
constexpr std::size_t kHiveChecksumAt = 508;
constexpr std::size_t kBinHeader = 32;
constexpr std::size_t kKeyHeader = 76;
constexpr std::size_t kValueHeader = 20;
constexpr std::uint16_t kKeyNameIsEightBit = 0x20;
constexpr std::uint16_t kValueNameIsEightBit = 0x01;
constexpr std::uint32_t kDataInside = 0x80000000;

template <class Number>
Number NumberAt(std::string_view bytes, std::size_t position) {
  Number number{};
  std::memcpy(&number, bytes.data() + position, sizeof number);
  return number;
}

void AppendSubKeys(HiveCells& cells, std::uint32_t list, bool below_index, bool* plain,
                   std::vector<std::uint32_t>& offsets) {
  const std::string_view cell = cells.At(list, "no list of sub-keys");
  const std::string_view kind = cell.substr(0, 2);
  const bool hinted = kind == "lf" || kind == "lh";
  const bool index = kind == "ri";
  if ((!hinted && !index && kind != "li") || (index && below_index)) {
    throw HiveFault{"no list of sub-keys", HiveFileOffset(list)};
  }
  *plain = *plain || kind == "li";
  const std::size_t count = HiveNumber16(cell, 2);
  const std::size_t step = hinted ? 8 : 4;
  if (4 + count * step > cell.size()) {
    throw HiveFault{"a list of sub-keys runs over the end of its cell", HiveFileOffset(list)};
  }
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t entry = HiveNumber32(cell, 4 + i * step);
    if (index) {
      AppendSubKeys(cells, entry, true, plain, offsets);
    } else {
      offsets.push_back(entry);
    }
  }
}

void JoinSegments(HiveCells& cells, const HiveValue& value, std::string_view record,
                  std::string& joined) {
  const std::size_t count = HiveNumber16(record, 2);
  if (record.size() < 8 || count != (value.size_bytes + kHiveSegment - 1) / kHiveSegment) {
    throw HiveFault{"a value's data has the wrong number of segments", HiveFileOffset(value.data)};
  }
  const std::string_view list = cells.At(HiveNumber32(record, 4), "no list of a value's segments");
  if (list.size() < 4 * count) {
    throw HiveFault{"a list of segments runs over the end of its cell", HiveFileOffset(value.data)};
  }
  joined.clear();
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t wanted =
        std::min<std::size_t>(kHiveSegment, value.size_bytes - joined.size());
    const std::uint32_t offset = HiveNumber32(list, 4 * i);
    const std::string_view segment = cells.At(offset, "no segment of a value's data");
    if (segment.size() < wanted) {
      throw HiveFault{"a segment of a value's data is too short", HiveFileOffset(offset)};
    }
    joined.append(segment.substr(0, wanted));
  }
}

}  // namespace

std::uint16_t HiveNumber16(std::string_view bytes, std::size_t position) {
  return NumberAt<std::uint16_t>(bytes, position);
}
std::uint32_t HiveNumber32(std::string_view bytes, std::size_t position) {
  return NumberAt<std::uint32_t>(bytes, position);
}
std::uint64_t HiveNumber64(std::string_view bytes, std::size_t position) {
  return NumberAt<std::uint64_t>(bytes, position);
}

bool IsHiveBase(std::string_view bytes) {
  return bytes.size() >= kHiveBaseUsed && bytes.starts_with("regf");
}

std::uint32_t HiveChecksum(std::string_view bytes) {
  std::uint32_t checksum = 0;
  for (std::size_t i = 0; i < kHiveChecksumAt; i += 4) checksum ^= HiveNumber32(bytes, i);
  if (checksum == 0) return 1;
  return checksum == 0xFFFFFFFF ? 0xFFFFFFFE : checksum;
}

HiveBase ReadHiveBase(std::string_view bytes) {
  return {HiveNumber32(bytes, 4),  HiveNumber32(bytes, 8),
          HiveNumber32(bytes, 20), HiveNumber32(bytes, 24),
          HiveNumber32(bytes, 28), HiveNumber32(bytes, 36),
          HiveNumber32(bytes, 40), HiveNumber32(bytes, kHiveChecksumAt) == HiveChecksum(bytes)};
}

HiveCells::HiveCells(std::string_view file)
    : bins_(file.substr(kHiveBaseSize, ReadHiveBase(file).bins_size_bytes)),
      minor_version_(ReadHiveBase(file).minor_version) {}

std::string_view HiveCells::At(std::uint32_t offset, const char* fault) {
  return Peek(offset, fault);
}

std::string_view HiveCells::Peek(std::uint32_t offset, const char* fault) const {
  if (offset >= kBinHeader && offset % 8 == 0 && offset + std::uint64_t{8} <= bins_.size()) {
    // The size counts its own four bytes, and is negative while the cell is allocated.
    const std::int64_t size = -std::int64_t{static_cast<std::int32_t>(HiveNumber32(bins_, offset))};
    if (size >= 8 && offset + static_cast<std::uint64_t>(size) <= bins_.size()) {
      return bins_.substr(offset + 4, static_cast<std::size_t>(size) - 4);
    }
  }
  throw HiveFault{fault, HiveFileOffset(offset)};
}

void HiveName::To(std::string& text) const {
  text.clear();
  if (!eight_bit) {
    AppendFromUtf16(bytes, text);
  } else if (IsAscii(bytes)) {
    text.assign(bytes);
  } else {
    std::string wide;
    for (const char byte : bytes) wide.append(1, byte).append(1, '\0');
    AppendFromUtf16(wide, text);
  }
}

int CompareHiveNames(const HiveName& left, const HiveName& right) {
  if (left.eight_bit && right.eight_bit && IsAscii(left.bytes) && IsAscii(right.bytes)) {
    return CompareNames(left.bytes, right.bytes);
  }
  std::string left_text;
  std::string right_text;
  left.To(left_text);
  right.To(right_text);
  return CompareNames(left_text, right_text);
}

HiveKey ReadHiveKey(HiveCells& cells, std::uint32_t offset) {
  const std::string_view cell = cells.At(offset, "no key where one should be");
  if (cell.size() < kKeyHeader || !cell.starts_with("nk")) {
    throw HiveFault{"no key where one should be", HiveFileOffset(offset)};
  }
  const std::uint16_t flags = HiveNumber16(cell, 2);
  const std::uint16_t name_size = HiveNumber16(cell, 72);
  if (kKeyHeader + name_size > cell.size()) {
    throw HiveFault{"a key's name runs over the end of its cell", HiveFileOffset(offset)};
  }
  return {.offset = offset,
          .flags = flags,
          .time = HiveNumber64(cell, 4),
          .parent = HiveNumber32(cell, 16),
          .sub_keys = HiveNumber32(cell, 20),
          .sub_key_list = HiveNumber32(cell, 28),
          .values = HiveNumber32(cell, 36),
          .value_list = HiveNumber32(cell, 40),
          .security = HiveNumber32(cell, 44),
          .class_name = HiveNumber32(cell, 48),
          .class_size_bytes = HiveNumber16(cell, 74),
          .name = {cell.substr(kKeyHeader, name_size), (flags & kKeyNameIsEightBit) != 0}};
}

std::string_view ReadHiveClass(HiveCells& cells, const HiveKey& key) {
  if (key.class_name == kHiveNone) return {};
  const std::string_view cell = cells.At(key.class_name, "no class name where one should be");
  if (cell.size() < key.class_size_bytes) {
    throw HiveFault{"a class name runs over the end of its cell", HiveFileOffset(key.class_name)};
  }
  return cell.substr(0, key.class_size_bytes);
}

bool ReadHiveSubKeys(HiveCells& cells, const HiveKey& key, std::vector<std::uint32_t>& offsets) {
  if (key.sub_keys == 0) return false;
  bool plain = false;
  const std::size_t before = offsets.size();
  AppendSubKeys(cells, key.sub_key_list, false, &plain, offsets);
  if (offsets.size() - before != key.sub_keys) {
    throw HiveFault{"a key has another number of sub-keys than its list",
                    HiveFileOffset(key.offset)};
  }
  return plain;
}

void ReadHiveValues(HiveCells& cells, const HiveKey& key, std::vector<std::uint32_t>& offsets) {
  if (key.values == 0) return;
  const std::string_view cell = cells.At(key.value_list, "no list of values where one should be");
  if (cell.size() / 4 < key.values) {
    throw HiveFault{"a list of values runs over the end of its cell",
                    HiveFileOffset(key.value_list)};
  }
  for (std::size_t i = 0; i < key.values; ++i) offsets.push_back(HiveNumber32(cell, 4 * i));
}

HiveValue ReadHiveValue(HiveCells& cells, std::uint32_t offset) {
  const std::string_view cell = cells.At(offset, "no value where one should be");
  if (cell.size() < kValueHeader || !cell.starts_with("vk")) {
    throw HiveFault{"no value where one should be", HiveFileOffset(offset)};
  }
  const std::uint16_t name_size = HiveNumber16(cell, 2);
  if (kValueHeader + name_size > cell.size()) {
    throw HiveFault{"a value's name runs over the end of its cell", HiveFileOffset(offset)};
  }
  const std::uint32_t size = HiveNumber32(cell, 4);
  HiveValue value{.offset = offset,
                  .name = {cell.substr(kValueHeader, name_size),
                           (HiveNumber16(cell, 16) & kValueNameIsEightBit) != 0},
                  .type = HiveNumber32(cell, 12),
                  .size_bytes = size & ~kDataInside,
                  .data = HiveNumber32(cell, 8),
                  .inside = (size & kDataInside) != 0,
                  .inside_data = {}};
  if (value.inside && value.size_bytes > 4) {
    throw HiveFault{"a value's data is longer than its record", HiveFileOffset(offset)};
  }
  if (value.inside) value.inside_data = cell.substr(8, value.size_bytes);
  return value;
}

std::string_view ReadHiveData(HiveCells& cells, const HiveValue& value, std::string& joined) {
  if (value.inside) return value.inside_data;
  if (value.size_bytes == 0) return {};
  const std::string_view cell = cells.At(value.data, "no data of a value where it should be");
  if (value.size_bytes > kHiveSegment && cells.minor_version() > 3 && cell.starts_with("db")) {
    JoinSegments(cells, value, cell, joined);
    return joined;
  }
  if (cell.size() < value.size_bytes) {
    throw HiveFault{"a value's data runs over the end of its cell", HiveFileOffset(value.data)};
  }
  return cell.substr(0, value.size_bytes);
}

}  // namespace tidemark::hosted
