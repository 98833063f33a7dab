// Repairs and their way back on the PC's own registry, where the registry editor is at work too:
// the same on both grounds.
#include "repair/complete_restore.h"

#include <gmock/gmock.h>

#include <string>

#include "helpers/text_helpers.h"
#include "platform/program_start.h"
#include "platform/registry_rules.h"
#include "platform/unique_handle.h"
#include "registry/exact_registry.h"
#include "repair/backups.h"
#include "repair/repair.h"
#include "tests/support/exact_snapshot.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

using namespace std::string_literals;

struct LivePc : WindowPc {
  LivePc() : WindowPc(TestPc::Registry::kLive) {}

  std::string Key(const std::string& below) const { return pc.LiveKey() + "\\" + below; }
  void Set(const std::string& below, const std::string& name, const ExactValue& value) {
    ExactKey key;
    EXPECT_EQ(ExactKey::Create(HKEY_CURRENT_USER, Key(below), key), ERROR_SUCCESS);
    EXPECT_EQ(key.Write(name, value), ERROR_SUCCESS);
  }
  std::string Get(const std::string& below, const std::string& name) {
    ExactKey key;
    ExactValue value;
    if (ExactKey::Open(HKEY_CURRENT_USER, Key(below), key) != ERROR_SUCCESS) return "no key";
    return key.Read(name, value) == ERROR_SUCCESS ? value.bytes : "none";
  }
  // Repairs one finding, in an undo file of its own.
  void Repair(const char* code, const std::string& path, const std::string& name = {}) {
    window.lvInvalidLoc.Clear();
    ListItem* item = window.lvInvalidLoc.Add("K1", path);
    item->SetSubItem(kValueName, name);
    item->SetSubItem(kValueType, "1");
    item->SetSubItem(kSelected, "1");
    item->SetSubItem(kTestCode, code);
    cmdFix_Click(window);
    Sleep(1100);
  }
  void RepairBelow(const char* code, const std::string& below, const std::string& name = {}) {
    Repair(code, "HKEY_CURRENT_USER\\" + Key(below), name);
  }
  void Restore(int row) {
    window.LvBackup.UserSelect(*window.LvBackup.Item(row));
    front_end.When([this] { return window.mess_box && window.mess_box->cmdYes.Visible(); },
                   [this] { window.mess_box->cmdYes.Click(); });
    window.cmdRestore.Click();
  }
  std::string Record() const {
    return pc.program_folder() + "\\backup\\complete\\" +
           window.LvBackup.Item(1)->Caption().String();
  }
  std::string Told() const { return window.lblRestored.Caption().String(); }
};

const ExactValue kOne{REG_SZ, "1\0\0\0"s};
const ExactValue kTwo{REG_SZ, "2\0\0\0"s};
const ExactValue kThree{REG_EXPAND_SZ, "3\0"s};

TEST(CompleteRestore, AKeyComesBackToTheLastBit) {
  LivePc on;
  const ExactValue kinds[] = {{REG_SZ, "a\0\r\0\n\0\0\0"s},
                              {REG_SZ, "\x3D\xD8"s},
                              {REG_MULTI_SZ, "abc"s},
                              {REG_EXPAND_SZ, "%\0x\0"s},
                              {REG_NONE, ""},
                              {11, "12345678"},
                              {0x7777, "\0"s},
                              {REG_DWORD, "123"s}};
  for (const char* const key :
       {"app", "app\\\xD0\x96", "app\\\xED\xA0\xBD", "app\\line\r\nbreak%0A"}) {
    char name = 'a';
    for (const ExactValue& value : kinds) on.Set(key, "\"\xD0\x96\\"s + name++, value);
    on.Set(key, "", kTwo);
  }
  on.Set("app", std::string(kLongestValueName, 'n'), {REG_BINARY, std::string(1'000'000, '\xA5')});
  const ExactSnapshot before = TakeExactSnapshot(HKEY_CURRENT_USER, on.pc.LiveKey());
  on.RepairBelow("APP", "app");
  EXPECT_EQ(on.Get("app", ""), "no key");
  EXPECT_EQ(on.window.lblRepaired.Caption(),
            "Problems repaired : 1, undo file " + on.window.LvBackup.Item(1)->Caption().String() +
                ". All of it can be restored from the Backups page.");
  on.window.LvBackup.UserSelect(*on.window.LvBackup.Item(1));
  on.window.LvBackup.MouseUp();
  EXPECT_EQ(on.window.LvBackup.ToolTipText(), "4 keys, 37 values");
  on.Restore(1);
  EXPECT_EQ(on.Told(), "Everything was put back as it was.");
  EXPECT_EQ(on.window.lblRepaired.Caption(), "") << "it has gone back";
  EXPECT_TRUE(TakeExactSnapshot(HKEY_CURRENT_USER, on.pc.LiveKey()) == before);
  EXPECT_EQ(on.window.LvBackup.Count(), 0);
}

TEST(CompleteRestore, APersonCanImportTheRecordWithTheEditor) {
  LivePc on;
  const ExactValue kinds[] = {{REG_SZ, "\x16\x04\"\0\\\0\0\0"s},
                              {REG_SZ, "a\0\r\0\n\0\0\0"s},
                              {REG_EXPAND_SZ, "%\0x\0\0\0"s},
                              {REG_MULTI_SZ, "a\0\0\0\0\0"s},
                              {REG_DWORD, "1234"s},
                              {REG_NONE, ""},
                              {REG_BINARY, std::string(300, 'x')},
                              {0x77, "\1\2\3"s}};
  for (const char* const key : {"app", "app\\below", "app\\\xD0\x96 ]"}) {
    char name = 'a';
    for (const ExactValue& value : kinds) on.Set(key, "\"\xD0\x96\\"s + name++, value);
  }
  const ExactSnapshot before = TakeExactSnapshot(HKEY_CURRENT_USER, on.pc.LiveKey());
  on.RepairBelow("APP", "app");
  const auto editor = StartAndFollow("regedit /s \"" + on.Record() + "\\registry.reg\"",
                                     WindowStyle::kMinimizedFocus);
  for (int wait = 0; wait < 200 && !editor->HasEnded(); ++wait) Sleep(50);
  EXPECT_TRUE(TakeExactSnapshot(HKEY_CURRENT_USER, on.pc.LiveKey()) == before);
}

TEST(CompleteRestore, NeitherOrderOfTwoRepairsLosesWhatOneHolds) {
  LivePc on;
  on.Set("app", "v", kOne);
  on.RepairBelow("STARTUP", "app", "v");
  on.Set("app", "v", kThree);
  on.Set("app\\below", "w", kTwo);
  on.RepairBelow("APP", "app");
  on.Restore(1);
  EXPECT_EQ(on.Get("app", "v"), kOne.bytes);
  on.Restore(1);
  EXPECT_EQ(on.Get("app", "v"), kThree.bytes);
  EXPECT_EQ(on.Get("app\\below", "w"), kTwo.bytes);
  EXPECT_EQ(on.Told(), "Everything was put back as it was. 1 newer entries are kept in this list.");
  ASSERT_EQ(on.window.LvBackup.Count(), 1);
  on.Restore(1);
  EXPECT_EQ(on.Get("app", "v"), kOne.bytes);
}

TEST(CompleteRestore, WhatAPersonHasChangedSinceStays) {
  LivePc on;
  on.Set("app", "v", kThree);
  on.Set("app", "other", kOne);
  on.RepairBelow("STARTUP", "app", "v");
  on.Set("app", "other", kTwo);
  on.Set("app\\new", "x", kTwo);
  on.window.LvBackup.UserSelect(*on.window.LvBackup.Item(1));
  on.window.LvBackup.MouseUp();
  EXPECT_EQ(on.window.LvBackup.ToolTipText(), "1 value") << "the key stayed";
  on.Restore(1);
  EXPECT_EQ(on.Get("app", "v"), kThree.bytes);
  EXPECT_EQ(on.Get("app", "other"), kTwo.bytes);
  EXPECT_EQ(on.Get("app\\new", "x"), kTwo.bytes);
  on.window.cmdRestore.Click();
  EXPECT_EQ(on.Told(), "") << "of the restore before";
}

TEST(CompleteRestore, LinksOfOneNameComeBackFromARepairOfLinksAlone) {
  LivePc on;
  const std::string one = on.pc.folder() + "\\one\\x.lnk";
  const std::string two = on.pc.folder() + "\\two\\x.lnk";
  on.pc.MakeFile(one, "one");
  on.pc.MakeFile(two, "two");
  SetFileAttributesA(one.c_str(), FILE_ATTRIBUTE_READONLY);
  for (const std::string& path : {one, two}) on.Repair("SHORTCUTS", path);
  EXPECT_FALSE(on.pc.FileExists(one) || on.pc.FileExists(two));
  ASSERT_EQ(on.window.LvBackup.Count(), 2);
  for (int row = 0; row < 2; ++row) {
    on.Restore(1);
    EXPECT_EQ(on.Told(), "Everything was put back as it was.");
  }
  EXPECT_EQ(on.pc.ReadFile(one), "one");
  // On Wine every file has the archive attribute.
  EXPECT_EQ(GetFileAttributesA(one.c_str()) & ~DWORD{FILE_ATTRIBUTE_ARCHIVE},
            DWORD{FILE_ATTRIBUTE_READONLY});
  EXPECT_EQ(on.pc.ReadFile(two), "two");
  on.pc.MakeFile(two + "3", "three");
  on.Repair("SHORTCUTS", two + "3");
  on.window.LvBackup.UserSelect(*on.window.LvBackup.Item(1));
  on.front_end.When([&on] { return on.window.mess_box && on.window.mess_box->cmdYes.Visible(); },
                    [&on] { on.window.mess_box->cmdYes.Click(); });
  on.window.cmdRemove.Click();
  EXPECT_EQ(on.window.LvBackup.Count(), 0) << "\"Remove\" takes the record too";
}

// What the editor has imported stays where the record lacks it, and nobody says that all is back.
TEST(CompleteRestore, WhatARecordLacksIsToldAndLeftToTheUndoFile) {
  std::string (*const kDamages[])(const std::string&) = {
      [](const std::string& script) { return ReplaceAll(script, "v\0\"\0=\0"s, "w\0\"\0=\0"s); },
      [](const std::string& script) { return script.substr(0, script.find("v\0\"\0=\0"s)); },
      [](const std::string&) { return ""s; },
  };
  for (const auto damage : kDamages) {
    LivePc on;
    on.Set("app", "v", kOne);
    on.Set("app", "stands", kTwo);
    on.RepairBelow("APP", "app");
    on.Set("app", "stands", kThree);
    on.pc.MakeFile(on.Record() + "\\registry.reg",
                   damage(on.pc.ReadFile(on.Record() + "\\registry.reg")));
    on.Restore(1);
    EXPECT_EQ(on.Get("app", "v"), kOne.bytes);
    EXPECT_EQ(on.Get("app", "stands"), kThree.bytes);
    EXPECT_THAT(on.Told(), testing::EndsWith("stays in this list."));
    EXPECT_EQ(on.window.LvBackup.Count(), 1);
  }
}

TEST(CompleteRestore, ARecordThatCannotBeReadOrLacksACopyStays) {
  LivePc on;
  const std::string link = on.pc.folder() + "\\one\\x.lnk";
  on.pc.MakeFile(link, "one");
  on.Repair("SHORTCUTS", link);
  const std::string list = on.Record() + "\\files.txt";
  {
    const UniqueFile alone(CreateFileA(list.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    on.Restore(1);
    EXPECT_THAT(on.Told(), testing::StartsWith("1 entries could not be put back."));
  }
  on.pc.MakeFile(on.Record() + "\\000002.lnk", "two");
  on.Restore(1);
  EXPECT_EQ(on.pc.ReadFile(link), "one");
  EXPECT_THAT(on.Told(), testing::StartsWith("1 entries could not be put back."));
  DeleteFileA(list.c_str());
  on.Restore(1);
  EXPECT_THAT(on.Told(), testing::StartsWith("2 entries could not be put back."));
  for (const char* const copy : {"\\000001.lnk", "\\000002.lnk"}) {
    DeleteFileA((on.Record() + copy).c_str());
  }
  on.Restore(1);
  EXPECT_THAT(on.Told(), testing::StartsWith("The record ends early;"));
  EXPECT_EQ(on.window.LvBackup.Count(), 1);
}

// A record made by hand: "app\\v" and a link, one after the other, of each of those values.
struct HandMade : LivePc {
  std::string link = pc.folder() + "\\one\\x.lnk";

  void Make(const ExactValue& value) {
    Set("app", "v", value);
    SetFileAttributesA(link.c_str(), FILE_ATTRIBUTE_NORMAL);
    pc.MakeFile(link, value.bytes);
  }
  std::string Standing() { return Get("app", "v") + pc.ReadFile(link); }
  void Keep(const std::vector<ExactValue>& values, bool deleted) {
    CompleteRecord record(pc.program_folder() + "\\backup\\complete\\undo_1.reg");
    for (const ExactValue& value : values) {
      Make(value);
      record.KeepValue(HKEY_CURRENT_USER, Key("app"), "v");
      ExactKey key;
      EXPECT_EQ(ExactKey::Create(HKEY_CURRENT_USER, Key("app"), key), ERROR_SUCCESS);
      EXPECT_EQ(key.DeleteValue("v"), ERROR_SUCCESS);
      if (deleted) record.Deleted();
      record.KeepFile(link);
      DeleteFileA(link.c_str());
      if (deleted) record.Deleted();
    }
    record.End();
    Loadbackup(window);
  }
};

TEST(CompleteRestore, AValueThatAnotherTookThePlaceOfAtOnceHasGone) {
  HandMade on;
  on.Set("app", "v", kOne);
  {
    CompleteRecord record(on.pc.program_folder() + "\\backup\\complete\\undo_1.reg");
    record.KeepValue(HKEY_CURRENT_USER, on.Key("app"), "v");
    on.Set("app", "v", kTwo);
    record.Deleted();
  }
  Loadbackup(on.window);
  on.Restore(1);
  EXPECT_EQ(on.Get("app", "v"), kOne.bytes);
}

TEST(CompleteRestore, OfTwoOfOneNameTheEarlierIsKeptOnceMore) {
  HandMade on;
  on.Keep({kOne, kTwo}, /*deleted=*/true);
  on.Make(kThree);
  const ExactValue* const in_turn[] = {&kTwo, &kOne, &kThree};
  for (const ExactValue* const value : in_turn) {
    on.Restore(1);
    EXPECT_EQ(on.Standing(), value->bytes + value->bytes);
    EXPECT_THAT(on.Told(), testing::StartsWith("Everything was put back as it was. 2 newer"));
    ASSERT_EQ(on.window.LvBackup.Count(), 1);
  }
}

TEST(CompleteRestore, WhatStandsWhereNoDeletionIsKnownOfStaysAndSoDoesTheRecord) {
  HandMade on;
  on.Keep({kOne}, /*deleted=*/false);
  on.Make(kTwo);
  on.Restore(1);
  EXPECT_EQ(on.Standing(), kTwo.bytes + kTwo.bytes);
  EXPECT_THAT(on.Told(), testing::StartsWith("2 entries were left alone"));
  EXPECT_EQ(on.window.LvBackup.Count(), 1);
}

TEST(CompleteRestore, WhatCannotBeKeptIsNotReplaced) {
  HandMade on;
  if (!TestPc::CanFault()) GTEST_SKIP();
  on.Keep({kOne}, /*deleted=*/true);
  on.Make(kTwo);
  SetFileAttributesA(on.link.c_str(), FILE_ATTRIBUTE_READONLY);
  on.pc.FillDisk(0);
  on.Restore(1);
  on.pc.FillDisk(std::nullopt);
  EXPECT_EQ(on.Standing(), kTwo.bytes + kTwo.bytes);
  EXPECT_NE(GetFileAttributesA(on.link.c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
  EXPECT_THAT(on.Told(), testing::StartsWith("2 entries could not be put back."));
  EXPECT_EQ(on.window.LvBackup.Count(), 1);
  KeptFile kept;
  kept.path = on.link;
  on.pc.FillDisk(0);
  EXPECT_FALSE(PutBackFile(kept, "longer than what stands there"));
  on.pc.FillDisk(std::nullopt);
  EXPECT_EQ(on.pc.ReadFile(on.link), kTwo.bytes);
  EXPECT_EQ(on.pc.FileNames(on.pc.folder() + "\\one").size(), 1U);
}

}  // namespace
}  // namespace tidemark
