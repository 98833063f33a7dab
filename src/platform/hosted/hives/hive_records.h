// The records of a hive file ("regf", version 1.3 to 1.5), read out of its cells with every bound
// checked. The layout is the one that M. Suhanov has published. An offset counts from the first
// bin, 4096 bytes into the file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::hosted {

inline constexpr std::uint32_t kHiveNone = 0xFFFFFFFF;  // an offset that leads nowhere
inline constexpr std::uint32_t kHiveBaseSize = 4096;
// Longer data is cut into segments of so many bytes, from version 1.4 on.
inline constexpr std::uint32_t kHiveSegment = 16344;

// Thrown by all that reads a hive. `what` tells what is wrong, `offset` counts from the start of
// the file.
struct HiveFault {
  const char* what;
  std::uint64_t offset;
};

constexpr std::uint64_t HiveFileOffset(std::uint64_t offset) { return offset + kHiveBaseSize; }

// Little-endian; the bytes are there.
std::uint16_t HiveNumber16(std::string_view bytes, std::size_t position);
std::uint32_t HiveNumber32(std::string_view bytes, std::size_t position);
std::uint64_t HiveNumber64(std::string_view bytes, std::size_t position);

// The first 512 of the 4096 bytes before the bins.
struct HiveBase {
  std::uint32_t sequence;  // of the write that was begun last
  std::uint32_t written;   // of the write that was ended last
  std::uint32_t major_version;
  std::uint32_t minor_version;
  std::uint32_t type;  // 0; 1, 2 and 6 are logs
  std::uint32_t root;
  std::uint32_t bins_size_bytes;
  bool checksum_right;
};
// Of at least 512 bytes that begin with "regf".
HiveBase ReadHiveBase(std::string_view bytes);
bool IsHiveBase(std::string_view bytes);
std::uint32_t HiveChecksum(std::string_view bytes);

// The bins of a hive. Reading a cell again is no fault here; the check has cells that tell it.
class HiveCells {
 public:
  // Of a file that is longer than its base block; keeps the bytes' address.
  explicit HiveCells(std::string_view file);
  virtual ~HiveCells() = default;
  HiveCells(const HiveCells&) = delete;
  HiveCells& operator=(const HiveCells&) = delete;

  // What the allocated cell at the offset holds. `fault` is thrown when there is none.
  virtual std::string_view At(std::uint32_t offset, const char* fault);

  std::string_view bins() const { return bins_; }
  std::uint32_t minor_version() const { return minor_version_; }

 protected:
  std::string_view Peek(std::uint32_t offset, const char* fault) const;

 private:
  std::string_view bins_;
  std::uint32_t minor_version_;
};

// A name as it lies in the file: 8-bit (Latin-1) or 16-bit text.
struct HiveName {
  std::string_view bytes;
  bool eight_bit;

  // As UTF-8 text; what was in `text` is lost.
  void To(std::string& text) const;
};
// In the order of keys and ignoring case, as CompareNames.
int CompareHiveNames(const HiveName& left, const HiveName& right);

struct HiveKey {
  std::uint32_t offset;
  std::uint16_t flags;
  std::uint64_t time;  // 100 ns since 1601-01-01 UTC
  std::uint32_t parent;
  std::uint32_t sub_keys;
  std::uint32_t sub_key_list;
  std::uint32_t values;
  std::uint32_t value_list;
  std::uint32_t security;
  std::uint32_t class_name;
  std::uint16_t class_size_bytes;
  HiveName name;
};
HiveKey ReadHiveKey(HiveCells& cells, std::uint32_t offset);
std::string_view ReadHiveClass(HiveCells& cells, const HiveKey& key);
// Appends the offsets of the sub-keys, in the order of their list. True when a list without hints
// ("li") is among them.
bool ReadHiveSubKeys(HiveCells& cells, const HiveKey& key, std::vector<std::uint32_t>& offsets);
// Appends the offsets of the values.
void ReadHiveValues(HiveCells& cells, const HiveKey& key, std::vector<std::uint32_t>& offsets);

struct HiveValue {
  std::uint32_t offset;
  HiveName name;
  std::uint32_t type;
  std::uint32_t size_bytes;
  std::uint32_t data;            // the cell, when it is not
  bool inside;                   // in the record itself
  std::string_view inside_data;  // then; as long as the cells live
};
HiveValue ReadHiveValue(HiveCells& cells, std::uint32_t offset);
// The data as it is. `joined` holds it where it lies in segments.
std::string_view ReadHiveData(HiveCells& cells, const HiveValue& value, std::string& joined);

}  // namespace tidemark::hosted
