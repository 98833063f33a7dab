// Hive files ("regf"), in which the registry of a Windows PC lies on its disk: judging one, loading
// it below a key of the registry, and making the bytes of a hive that holds what that key holds
// now. Nothing here changes a file but NewHive (hive_replacement.h).
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::hosted {

class RegistryKey;

enum class HiveState {
  kSound,     // may be read and written
  kReadOnly,  // may be read; what is odd about it makes a write unsafe
  kDirty,     // was not closed cleanly: what it shows may not be what holds
  kDamaged,
  kNoHive,  // another kind of file, or a hive of a version that is not known
};

struct HiveReport {
  HiveState state = HiveState::kSound;
  // One line for a person, without the file's name: "damaged at 0x1234: a key's name runs over the
  // end of its cell". Empty when the hive is sound.
  std::string why;

  bool readable() const { return state == HiveState::kSound || state == HiveState::kReadOnly; }
  bool writable() const { return state == HiveState::kSound; }
};

// Judges a hive by its own bytes and those of its logs, without the library that writes: header,
// bins, cells, every reference and the order of the keys. Takes any bytes, and time in proportion
// to them.
HiveReport CheckHive(std::string_view hive, const std::vector<std::string>& logs = {});

// A hive as it lay on the disk.
struct HiveFile {
  std::filesystem::path path;
  std::vector<std::filesystem::path> logs;  // that lie beside it: .LOG, .LOG1, .LOG2 in any case
  std::string bytes;
  HiveReport report;
};

// Reads and judges a hive with its logs. Throws HostedPcError ("path: can't be read: why") when the
// file can't be read; a file that is no sound hive is told in the report.
HiveFile ReadHive(const std::filesystem::path& path);

// Puts the keys and values of a readable hive below the key, which stands for the hive's root and
// is empty. What can't be written back later is marked on each key (RegistryKey::limits); of a hive
// that is not writable, or where `writable` is false, everything.
void LoadHive(const HiveFile& hive, RegistryKey& top, bool writable = true);

// Whether the key holds something else than the hive. Costs about what loading costs.
bool DiffersFromHive(const HiveFile& hive, const RegistryKey& top);

// The bytes of a hive that holds what the key holds, made of a copy of the hive, which is writable:
// changed keys get `now` as their time, all others stay as they were with times, security and
// class. The bytes are checked, read again and compared with what was meant before they are given
// out. Throws HostedPcError, and nothing has happened, when the library refuses or spoils
// something. `now` is in units of 100 ns since 1601-01-01 UTC.
std::string WriteHive(const HiveFile& hive, const RegistryKey& top, std::uint64_t now);

}  // namespace tidemark::hosted
