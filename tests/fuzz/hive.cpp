// Hive files: whatever the check takes for sound can be loaded, changed and written, and holds then
// what was meant. An input is the plan of the changes, the version, the place of the root and the
// cells of the one bin; what else a hive has is put around it, so that what lies inside is reached.
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/hosted/hives/hive_file.h"
#include "platform/hosted/hives/hive_records.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_limits.h"
#include "tests/fuzz/fuzz_pc.h"

namespace {

using namespace tidemark::hosted;
using tidemark::fuzz::Require;

void Change(RegistryKey& key, std::uint8_t plan, int* turn) {
  if ((plan >> ++*turn % 8 & 1) != 0 && key.value_count() > 0 && CanLoseValues(key)) {
    key.DeleteValue(std::string(key.value(0).name()));
  }
  for (std::size_t i = key.key_count(); i > 0; --i) {
    RegistryKey& below = key.key(i - 1);
    if ((plan >> ++*turn % 8 & 1) != 0 && CanLose(below)) {
      key.TakeKey(below);
    } else {
      Change(below, plan, turn);
    }
  }
  if ((plan & 0x80) != 0 && CanTakeKey(key, "made") &&
      CanTakeValue(key, "value", REG_BINARY, "data")) {
    key.MakeKey("made").SetValue("value", REG_BINARY, "data");
  }
}

std::string Numbers(std::initializer_list<std::uint32_t> numbers) {
  return {reinterpret_cast<const char*>(numbers.begin()), 4 * numbers.size()};
}

std::string HiveAround(std::uint32_t minor_version, std::uint32_t root, std::string_view cells) {
  constexpr std::size_t kBin = 4096;
  std::string bin = "hbin" + Numbers({0, kBin, 0, 0, 0, 0, 0});
  bin += cells.substr(0, kBin - bin.size());
  const auto left = static_cast<std::uint32_t>(kBin - bin.size());
  if (left >= 8) bin += Numbers({left});
  bin.resize(kBin);
  std::string base = "regf" + Numbers({1, 1, 0, 0, 1, minor_version, 0, 1, root, kBin, 1});
  base.resize(508);
  base += Numbers({HiveChecksum(base)});
  base.resize(kHiveBaseSize);
  return base + bin;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kCells = 6;
  const std::string input(reinterpret_cast<const char*>(data), size);
  CheckHive(input, {input});
  if (size < kCells) return 0;
  const std::string bytes =
      HiveAround(3 + data[1] % 3U, HiveNumber32(input, 2), std::string_view(input).substr(kCells));
  const HiveFile hive{"hive", {}, bytes, CheckHive(bytes)};
  if (!hive.report.readable()) return 0;
  RegistryKey top(nullptr, "top");
  LoadHive(hive, top);
  if (!hive.report.writable()) return 0;
  Require(!DiffersFromHive(hive, top));
  int turn = 0;
  Change(top, data[0], &turn);
  try {
    const std::string written = WriteHive(hive, top, 1);
    const HiveFile again{"hive", {}, written, CheckHive(written)};
    Require(again.report.writable() && !DiffersFromHive(again, top));
  } catch (const HostedPcError&) {
    // What the library will not do; nothing has happened.
  }
  return 0;
}
