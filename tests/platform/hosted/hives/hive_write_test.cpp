#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/hosted/hives/hive_file.h"
#include "platform/hosted/hives/hive_records.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_limits.h"
#include "tests/platform/hosted/hives/hive_collection.h"
#include "tests/platform/hosted/hives/hive_listing.h"
#include "tests/support/hive_maker.h"
#include "tests/support/temporary_folder.h"

namespace tidemark::hosted {
namespace {

constexpr std::uint64_t kNow = 0x01DD000000000000;

// Deletes and adds here and there, where the limits allow it.
void Change(RegistryKey& key, int* turn) {
  if (++*turn % 3 == 0 && key.value_count() > 0 && CanLoseValues(key)) {
    key.DeleteValue(std::string(key.value(0).name()));
  }
  if (*turn % 5 == 0 && CanTakeKey(key, "Made_h\xC3\xA4re\\Below") &&
      key.FindKey("Made_h\xC3\xA4re") == nullptr) {
    key.MakeKey("Made_h\xC3\xA4re").MakeKey("Below").SetValue("name", REG_SZ, "text");
  }
  for (std::size_t i = key.key_count(); i > 0; --i) {
    RegistryKey& below = key.key(i - 1);
    if (++*turn % 4 == 0 && CanLose(below)) {
      key.TakeKey(below);
    } else {
      Change(below, turn);
    }
  }
}

TEST(HiveWrite, ChangesEachHiveOfTheCollectionAsMeant) {
  const TemporaryFolder folder;
  for (const CollectedHive& line : CollectedHives()) {
    if (line.state != HiveState::kSound) continue;
    const HiveFile hive = ReadHive(CopyOf(line, folder.path()));
    RegistryKey top(nullptr, "top");
    LoadHive(hive, top);
    EXPECT_FALSE(DiffersFromHive(hive, top)) << line.file;
    int turn = 0;
    Change(top, &turn);
    try {
      const HiveFile written = HiveOf(WriteHive(hive, top, kNow));
      EXPECT_TRUE(written.report.writable()) << line.file << " " << written.report.why;
      EXPECT_EQ(ListingOf(written), ListingOf(top)) << line.file;
      EXPECT_FALSE(DiffersFromHive(written, top)) << line.file;
    } catch (const HostedPcError& error) {
      ADD_FAILURE() << error.what();
    }
  }
}

std::string TimesOf(HiveCells& cells, std::uint32_t offset) {
  const HiveKey key = ReadHiveKey(cells, offset);
  std::string name;
  key.name.To(name);
  std::string times = name + (key.time == kNow ? "=now " : "=then ");
  std::vector<std::uint32_t> below;
  ReadHiveSubKeys(cells, key, below);
  for (const std::uint32_t sub_key : below) times += TimesOf(cells, sub_key);
  return times;
}

TEST(HiveWrite, TellsTheTimeOfWhatChangedAndNoOther) {
  RegistryKey top(nullptr, "top");
  for (const char* name : {"deleted from", "untouched", "value set"}) {
    top.MakeKey(name).MakeKey("below").SetValue("value", REG_SZ, "text");
  }
  const HiveFile hive = HiveOf(MakeHive(top));
  RegistryKey wanted(nullptr, "top");
  LoadHive(hive, wanted);
  EXPECT_EQ(WriteHive(hive, wanted, kNow), hive.bytes);
  wanted.key(0).TakeKey(wanted.key(0).key(0));
  wanted.key(2).SetValue("value", REG_SZ, "another");
  const std::string written = WriteHive(hive, wanted, kNow);
  HiveCells cells(written);
  const HiveBase base = ReadHiveBase(written);
  EXPECT_EQ(TimesOf(cells, base.root),
            "top=then deleted from=now untouched=then below=then value set=now below=then ");
  EXPECT_EQ(base.sequence, 2U);
  EXPECT_EQ(HiveNumber64(written, 12), kNow);
}

// Each sub-key of the root with the hint of its list.
std::string HintsOf(const std::string& hive) {
  HiveCells cells(hive);
  const std::string_view list =
      cells.At(ReadHiveKey(cells, ReadHiveBase(hive).root).sub_key_list, "");
  std::string hints(list.substr(0, 4));
  for (std::size_t at = 4; at < 4 + std::size_t{HiveNumber16(list, 2)} * 8; at += 8) {
    std::string name;
    ReadHiveKey(cells, HiveNumber32(list, at)).name.To(name);
    hints += name + "=" + std::to_string(HiveNumber32(list, at + 4)) + " ";
  }
  return hints;
}

TEST(HiveWrite, SetsNewKeysWhereThePlatformLooksForThem) {
  RegistryKey top(nullptr, "top");
  for (const char* name : {"b", "\xC3\xA4rger", "ZZ", "_z"}) top.MakeKey(name);
  const HiveFile hive = HiveOf(MakeHive(top));
  for (const char* name :
       {"_A", "A", "\xC3\x84pfel", "\xD1\x8F\xD0\xB0", "\xD0\xAF\xD0\xA9", "s\xC3\x9F"}) {
    top.MakeKey(name).MakeKey("below");
  }
  const std::string written = WriteHive(hive, top, kNow);
  EXPECT_EQ(HintsOf(written), HintsOf(MakeHive(top)));
}

TEST(HiveWrite, WritesNothingThatTheLibraryCanNotDo) {
  RegistryKey top(nullptr, "top");
  for (int i = 0; i < 3; ++i) top.MakeKey("key" + std::to_string(i)).SetValue("v", REG_BINARY, "x");
  const HiveFile hive = HiveOf(MakeHive(top, HiveMake::kOld));
  top.TakeKey(top.key(1));  // below a list without hints
  EXPECT_THROW(WriteHive(hive, top, kNow), HostedPcError);
  RegistryKey read_only(nullptr, "top");
  const HiveFile dirty{"hive", {}, hive.bytes, {HiveState::kDirty, "was not closed cleanly"}};
  EXPECT_THROW(WriteHive(dirty, read_only, kNow), HostedPcError);
  EXPECT_THROW(LoadHive(dirty, read_only), HostedPcError);
}

}  // namespace
}  // namespace tidemark::hosted
