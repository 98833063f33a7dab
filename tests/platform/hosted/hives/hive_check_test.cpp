#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "platform/hosted/hives/hive_file.h"
#include "platform/hosted/hives/hive_records.h"
#include "tests/platform/hosted/hives/hive_collection.h"
#include "tests/platform/hosted/hives/hive_listing.h"
#include "tests/support/hive_maker.h"
#include "tests/support/temporary_folder.h"

namespace tidemark::hosted {
namespace {

using namespace std::string_literals;

void Count(const RegistryKey& key, std::size_t* keys, std::size_t* values) {
  ++*keys;
  *values += key.value_count();
  for (std::size_t i = 0; i < key.key_count(); ++i) Count(key.key(i), keys, values);
}

TEST(HiveCheck, TakesEachHiveOfTheCollectionForWhatItIs) {
  const TemporaryFolder folder;
  for (const CollectedHive& line : CollectedHives()) {
    const HiveFile hive = ReadHive(CopyOf(line, folder.path()));
    EXPECT_EQ(hive.report.state, line.state) << line.file << " " << hive.report.why;
    if (!hive.report.readable()) continue;
    RegistryKey top(nullptr, "top");
    LoadHive(hive, top);
    std::size_t keys = 0;
    std::size_t values = 0;
    Count(top, &keys, &values);
    EXPECT_EQ(keys, line.keys) << line.file;
    EXPECT_EQ(values, line.values) << line.file;
  }
}

// Every kind of name and data that a hive can hold.
void Fill(RegistryKey& top) {
  RegistryKey& key = top.MakeKey("\xD0\x9A\xD0\xBB\xD1\x8E\xD1\x87");
  key.SetValue("", REG_SZ, "text\0"s);
  key.SetValue("\xC3\xA9", REG_SZ, "x\xED\xA0\x80", 'o');
  key.SetValue("number", 0x12345678, "four");
  key.SetValue("empty", REG_NONE, "");
  key.SetValue("long", REG_BINARY, std::string(40'000, 'l'));
  key.SetValue("least", REG_BINARY, std::string(kHiveSegment, 's'));
  for (int i = 0; i < 1200; ++i) top.MakeKey("Many").MakeKey(std::to_string(10'000 + i));
}

TEST(HiveLoad, BringsEveryNameAndByte) {
  for (const HiveMake make : {HiveMake::kYoung, HiveMake::kOld}) {
    RegistryKey top(nullptr, "top");
    Fill(top);
    const HiveFile hive = HiveOf(MakeHive(top, make));
    EXPECT_EQ(hive.report.why, "");
    EXPECT_EQ(ListingOf(hive), ListingOf(top));
  }
}

// Where something first stands in a hive.
std::size_t Find(const std::string& hive, const std::string& what) { return hive.find(what); }

void Put(std::string& hive, std::size_t position, std::uint32_t number) {
  std::memcpy(hive.data() + position, &number, sizeof number);
}

std::string MadeHive() {
  RegistryKey top(nullptr, "top");
  top.MakeKey("aaa").SetValue("name", REG_BINARY, "some data");
  top.MakeKey("bbb").MakeKey("ccc").SetValue("name", REG_BINARY, "other data");
  return MakeHive(top);
}

TEST(HiveCheck, TellsWhatIsWrong) {
  // Places in a key's cell, from its name on, and in a value's.
  constexpr std::size_t kName = 76;
  const auto key = [](const std::string& hive, const char* name) {
    return Find(hive, name) - kName;
  };
  const auto of = [&](const char* name, int place, std::uint32_t number) {
    return [=](std::string& hive) {
      Put(hive, key(hive, name) + static_cast<std::size_t>(place), number);
    };
  };
  const auto rest = [](std::string& hive) { Put(hive, 508, HiveChecksum(hive)); };
  const struct {
    std::function<void(std::string&)> spoil;
    HiveState state;
    const char* why;
  } kCases[] = {
      {[](std::string& hive) { hive[0] = 'R'; }, HiveState::kNoHive, "no registry hive"},
      {[](std::string& hive) { Put(hive, 4, 2); }, HiveState::kDirty, "closed cleanly"},
      {[](std::string& hive) { Put(hive, 44, 2); }, HiveState::kDamaged, "checksum"},
      {[&](std::string& hive) { Put(hive, 24, 6), rest(hive); }, HiveState::kNoHive, "1.6"},
      {[&](std::string& hive) { Put(hive, 28, 6), rest(hive); }, HiveState::kNoHive, "log"},
      {[](std::string& hive) { hive.pop_back(); }, HiveState::kDamaged, "end is missing"},
      {[](std::string& hive) { hive[kHiveBaseSize] = 'H'; }, HiveState::kDamaged, "no bin"},
      {of("aaa", -4, 88), HiveState::kDamaged, "no key"},
      {of("aaa", -4, 0xFFFFFFF7), HiveState::kDamaged, "cell of impossible size"},
      {of("aaa", 16, 0x20), HiveState::kDamaged, "another parent"},
      {of("aaa", 20, 1), HiveState::kDamaged, "no list of sub-keys"},
      {of("aaa", 36, 1000), HiveState::kDamaged, "list of values runs over"},
      {of("aaa", 44, 0x30), HiveState::kDamaged, "security record"},
      {of("aaa", 48, 0x28), HiveState::kDamaged, "no class name"},
      {of("aaa", 28, 0x28), HiveState::kReadOnly, "an empty list"},
      {of("aaa", 72, 0x00040400), HiveState::kDamaged, "name runs over"},
      {of("bbb", kName, 0x20616161), HiveState::kDamaged, "two keys of one name"},
      {of("bbb", kName, 0x20202020), HiveState::kReadOnly, "not in order"},
      {[](std::string& hive) { Put(hive, Find(hive, "name") - 16, 300); }, HiveState::kDamaged,
       "data runs over"},
      {[](std::string& hive) { Put(hive, Find(hive, "name") - 16, 0); }, HiveState::kReadOnly,
       "an empty value"},
      {[](std::string& hive) { Put(hive, Find(hive, "sk") + 4, 0x28); }, HiveState::kDamaged,
       "security record"},
      {[](std::string& hive) { Put(hive, Find(hive, "sk") + 12, 1); }, HiveState::kReadOnly,
       "counts too few"},
      {[&](std::string& hive) {
         const std::string list = hive.substr(key(hive, "bbb") + 28, 4);
         hive.replace(key(hive, "aaa") + 28, 4, list);
         Put(hive, key(hive, "aaa") + 20, 1);
       },
       HiveState::kDamaged, "parent"},
      {[](std::string& hive) {  // both values say that their data lie in one cell
         hive.replace(hive.rfind("name") - 12, 4, hive, Find(hive, "name") - 12, 4);
       },
       HiveState::kDamaged, "two references"},
  };
  for (const auto& [spoil, state, why] : kCases) {
    std::string hive = MadeHive();
    spoil(hive);
    const HiveReport report = CheckHive(hive);
    EXPECT_EQ(report.state, state) << report.why << ", not " << why;
    EXPECT_NE(report.why.find(why), std::string::npos) << report.why << ", not " << why;
  }
}

TEST(HiveCheck, LooksIntoLogsForWhatTheHiveLacks) {
  const auto log = [](std::uint32_t type, std::uint32_t sequence, std::uint32_t entry) {
    std::string bytes = MadeHive().substr(0, 1024);
    Put(bytes, 4, sequence);
    Put(bytes, 8, sequence);
    Put(bytes, 28, type);
    Put(bytes, 508, HiveChecksum(bytes));
    bytes.replace(512, 8, "HvLE\0\2\0\0"s);
    Put(bytes, 524, entry);
    return bytes;
  };
  std::string broken = log(1, 2, 0);
  broken[100] = 'x';
  const struct {
    std::string log;
    HiveState state;
  } kCases[] = {
      {"", HiveState::kSound},           {log(1, 1, 9), HiveState::kSound},
      {log(1, 2, 0), HiveState::kDirty}, {log(6, 1, 0), HiveState::kSound},
      {log(6, 1, 1), HiveState::kDirty}, {broken, HiveState::kSound},
  };
  for (const auto& [bytes, state] : kCases) {
    EXPECT_EQ(CheckHive(MadeHive(), {"", bytes}).state, state) << (&bytes - &kCases[0].log);
  }
}

}  // namespace
}  // namespace tidemark::hosted
