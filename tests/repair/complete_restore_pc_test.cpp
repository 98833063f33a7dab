// Scan, repair all, restore: over random PCs that hold all that a registry can hold, what comes
// back is the PC of before, to the last bit. The same with faults on the way.
#include <gmock/gmock.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>

#include "helpers/key_names.h"
#include "platform/code_page.h"
#include "platform/exact_text.h"
#include "platform/file_system_object.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/registry_store.h"
#include "registry/record_contents.h"
#include "repair/backups.h"
#include "repair/complete_restore.h"
#include "repair/repair.h"
#include "tests/repair/round_trip_pc.h"
#include "tests/support/exact_snapshot.h"

namespace tidemark {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

constexpr const char* kIgnored = "a line of before\r\n";

// A random PC with rarer things in it.
struct ExactPc : RoundTripPc {
  explicit ExactPc(unsigned seed) : RoundTripPc(seed, /*exact=*/true) {
    pc.MakeFile(IgnoreFile(), kIgnored);
    if (registry.Chance(3) == 0) DenySome();
    exact = TakeExactSnapshot();
    links = Links();
  }

  void DenySome() {
    for (int index = 1; index <= Rows(); index += 3) {
      const std::string key = Row(index).Caption().String();
      if (Row(index).SubItem(kTestCode) == "SHORTCUTS") continue;
      const bool itself = registry.Chance(2) == 0;
      pc.DenyKey(itself ? key : key + "\\Below", KEY_SET_VALUE | KEY_CREATE_SUB_KEY | kDelete);
      if (itself) IsToBeIgnored(Row(index), key);
    }
  }
  // Some tests' keys are; a server's goes with its class, of which the other half may go.
  void IsToBeIgnored(const ListItem& row, const std::string& key) {
    const std::string code = row.SubItem(kTestCode).String();
    const bool by_key = row.SubItem(kValueName) == "" && !UpperCase(key).ends_with("SERVER32") &&
                        (code == "CLSID" || code == "INTERFACE" || code == "LIB");
    if (code == "IFA" || by_key) ignored.push_back(ToSystemCodePage(SplitSubKey(key)));
  }
  std::string IgnoreFile() const { return pc.program_folder() + "\\Ignorelst.ini"; }
  // Path to bytes, time of the last write and attributes.
  std::map<std::string, std::string> Links() {
    std::map<std::string, std::string> found;
    for (const std::string& folder : LinkFolders()) {
      for (const std::string& name : pc.FileNames(folder)) {
        const std::string path = folder + "\\" + name;
        WIN32_FILE_ATTRIBUTE_DATA data{};
        GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data);
        found[path] = std::to_string(data.dwFileAttributes) + " " +
                      std::to_string(data.ftLastWriteTime.dwLowDateTime) + pc.ReadFile(path);
      }
    }
    return found;
  }
  std::string Record() const { return CompleteRecordFolder(UndoFile()); }
  bool HasRecord() const { return FileSystemObject().FolderExists(Record()); }
  std::string Restored() const { return window.lblRestored.Caption().String(); }

  // Presses Restore and says yes.
  void Restore(int row = 1) {
    Loadbackup(window);
    if (window.LvBackup.Count() < row) return;
    window.LvBackup.UserSelect(*window.LvBackup.Item(row));
    front_end.When([this] { return window.mess_box && window.mess_box->cmdYes.Visible(); },
                   [this] { window.mess_box->cmdYes.Click(); });
    window.cmdRestore.Click();
  }
  void ExpectAllBack(bool and_nothing_else = true) {
    const ExactSnapshot now = TakeExactSnapshot();
    for (const auto& [entry, value] : exact) {
      const auto found = now.find(entry);
      if (found == now.end()) {
        ADD_FAILURE() << "lost " << entry;
      } else {
        EXPECT_TRUE(found->second == value) << entry;
      }
    }
    for (const auto& [entry, value] : now) {
      EXPECT_TRUE(!and_nothing_else || exact.contains(entry)) << "new " << entry;
    }
    EXPECT_EQ(Links(), links);
  }

  ExactSnapshot exact;
  std::map<std::string, std::string> links;
  std::vector<std::string> ignored;
};

// What is gone from the PC and what of that its record lacks.
struct Losses {
  std::size_t gone = 0;
  std::size_t gone_in_part = 0;
  std::size_t links_of_one_name = 0;
  std::vector<std::string> in_neither;
};
Losses LossesOf(ExactPc& on) {
  ExactSnapshot kept;
  const RecordContents record = ReadRecord(on.Record());
  for (const RecordPiece& piece : record.pieces) {
    for (const RecordedKey& key : piece.keys) {
      const std::string name = FullName(key.key);
      // A finding's text has the letters of its source.
      kept[UpperCase(name + "\\")] = {};
      for (const RecordedValue& value : key.values) {
        kept[UpperCase(name + "\\\\" + value.name)] = value.value;
      }
    }
  }
  Losses losses;
  for (const RecordPiece& piece : record.pieces) {
    const bool in_part = !piece.stayed.empty() && piece.stayed.size() < piece.keys.size();
    losses.gone_in_part += in_part ? 1 : 0;
  }
  std::set<std::string> names;
  for (const KeptFile& file : record.files) {
    const bool is_new = names.insert(file.path.substr(file.path.rfind('\\'))).second;
    losses.links_of_one_name += is_new ? 0 : 1;
  }
  const ExactSnapshot now = TakeExactSnapshot();
  for (const auto& [entry, value] : on.exact) {
    if (now.contains(entry)) continue;
    ++losses.gone;
    const auto found = kept.find(UpperCase(entry));
    if (found == kept.end() || found->second != value) losses.in_neither.push_back(entry);
  }
  const auto links = on.Links();
  for (const auto& [path, bytes] : on.links) {
    if (links.contains(path)) continue;
    ++losses.gone;
    std::string copy;
    for (const KeptFile& file : record.files) {
      if (file.path == path && ReadCopy(on.Record(), file, copy)) break;
    }
    if (copy.empty() || !bytes.ends_with(copy)) losses.in_neither.push_back(path);
  }
  return losses;
}
const std::vector<std::string> kNothing;

using CompleteRestorePc = RoundTrip;

template <class Test>
void OnExactPcs(unsigned count, Test&& test) {
  for (unsigned seed = 1; seed <= count && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    ExactPc on(seed);
    test(on);
  }
}

TEST_F(CompleteRestorePc, BringsBackAllOfThreeHundredPcs) {
  Losses all;
  std::size_t ignored = 0;
  OnExactPcs(300, [&](ExactPc& on) {
    cmdFix_Click(on.window);
    const Losses losses = LossesOf(on);
    all.gone += losses.gone;
    all.gone_in_part += losses.gone_in_part;
    all.links_of_one_name += losses.links_of_one_name;
    const std::string list = on.pc.ReadFile(on.IgnoreFile());
    EXPECT_THAT(list, testing::StartsWith(kIgnored));
    for (const std::string& key : on.ignored) EXPECT_THAT(list, testing::HasSubstr(key + "\r\n"));
    ignored += on.ignored.size();
    EXPECT_EQ(losses.in_neither, kNothing);
    const std::string told = on.window.lblRepaired.Caption().String();
    EXPECT_TRUE(told.empty() || told.ends_with("restored from the Backups page.")) << told;
    if (on.registry.Chance(2) == 0) on.pc.AllowAll();
    on.Restore();
    on.ExpectAllBack();
    EXPECT_EQ(on.Restored(), losses.gone == 0 ? "" : "Everything was put back as it was.");
    EXPECT_FALSE(on.HasRecord());
    EXPECT_EQ(on.pc.ReadFile(on.IgnoreFile()), list);
  });
  EXPECT_GT(all.gone, 3000U);
  EXPECT_GT(all.gone_in_part, 20U);
  EXPECT_GT(all.links_of_one_name, 300U);
  EXPECT_GT(ignored, 20U);
}

TEST_F(CompleteRestorePc, TwoRepairsComeBackInEitherOrder) {
  OnExactPcs(60, [](ExactPc& on) {
    std::vector<std::string> half(static_cast<std::size_t>(on.Rows()));
    for (std::string& selected : half) selected = std::to_string(on.registry.Chance(2));
    for (const char* const now : {"1", "0"}) {
      for (int index = 1; index <= on.Rows(); ++index) {
        const bool selected = half[static_cast<std::size_t>(index - 1)] == now;
        on.window.lvInvalidLoc.Item(index)->SetSubItem(kSelected, selected ? "1" : "0");
      }
      cmdFix_Click(on.window);
      Sleep(1100);
    }
    on.Restore(1 + static_cast<int>(on.registry.Chance(2)));
    on.Restore();
    on.ExpectAllBack();
    EXPECT_EQ(on.window.LvBackup.Count(), 0);
  });
}

TEST_F(CompleteRestorePc, ASlowEditorOrNoneChangesNothing) {
  void (*const kEditors[])(ExactPc&) = {
      [](ExactPc& on) { on.pc.SlowEditor(400, 10); },
      [](ExactPc&) { hosted::HostedPc::Current().editor().SetPresent(false); },
  };
  for (const auto prepare : kEditors) {
    OnExactPcs(10, [prepare](ExactPc& on) {
      prepare(on);
      cmdFix_Click(on.window);
      EXPECT_EQ(LossesOf(on).in_neither, kNothing);
      on.Restore();
      on.ExpectAllBack();
    });
  }
  ExactPc on(1);
  cmdFix_Click(on.window);
  on.pc.SlowEditor(60'000);
  on.Restore();
  EXPECT_EQ(on.Restored(), "The registry editor is still at work. The record stays in this list.");
  EXPECT_TRUE(on.HasRecord());
  Sleep(60'000);  // what the editor makes in the end is written over once more
  on.Restore();
  on.ExpectAllBack(/*and_nothing_else=*/false);
}

// The process ends before the flush of that number, and with it all that was not on the disk by
// then; the registry is as it stands at that moment.
TEST_F(CompleteRestorePc, APulledPlugAtAnyFlushLeavesNothingInNeither) {
  struct Killed {};
  std::size_t gone = 0;
  for (const unsigned seed : {2U, 3U, 5U, 8U}) {
    bool killed = true;
    for (int kill = 1; killed; ++kill) {
      SCOPED_TRACE("seed " + std::to_string(seed) + " flush " + std::to_string(kill));
      ExactPc on(seed);
      int flushes = 0;
      killed = false;
      std::map<std::string, DWORD> on_disk;
      auto& files = hosted::HostedPc::Current().files();
      files.before_flush = [&](const std::string& path) {
        if (killed) return;
        killed = ++flushes == kill;
        if (killed) throw Killed{};
        WIN32_FILE_ATTRIBUTE_DATA data{};
        GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data);
        on_disk[path] = data.nFileSizeLow;
      };
      try {
        cmdFix_Click(on.window);
      } catch (const Killed&) {
        EXPECT_TRUE(killed);
      }
      files.before_flush = nullptr;
      for (const std::string& name : on.pc.FileNames(on.Record())) {
        const std::string path = on.Record() + "\\" + name;
        const auto known = on_disk.find(UpperCase(path));
        const std::string bytes = on.pc.ReadFile(path);
        on.pc.MakeFile(path, bytes.substr(0, known == on_disk.end() ? 0 : known->second));
      }
      const Losses losses = LossesOf(on);
      gone += losses.gone;
      EXPECT_EQ(losses.in_neither, kNothing);
      on.Restore();
      on.ExpectAllBack(/*and_nothing_else=*/!killed);
      if (HasFailure()) return;
    }
  }
  EXPECT_GT(gone, 200U);
}

// The repair goes ahead all the same. What the full disk kept out of the record is told then and
// when it is restored, and what the record or the undo file has comes back.
TEST_F(CompleteRestorePc, WhatAFullDiskKeepsOutOfTheRecordIsTold) {
  std::size_t lost = 0;
  std::size_t back_by_import = 0;
  for (unsigned room = 0; room < 60'000 && !HasFailure(); room += 1 + room / 8) {
    SCOPED_TRACE("room " + std::to_string(room));
    ExactPc on(4);
    on.pc.FillDisk(room);
    cmdFix_Click(on.window);
    on.pc.FillDisk(std::nullopt);
    const Losses losses = LossesOf(on);
    lost += losses.in_neither.size();
    const std::string told = on.window.lblRepaired.Caption().String();
    EXPECT_EQ(told.ends_with("All of it can be restored from the Backups page."),
              losses.in_neither.empty())
        << told;
    on.Restore();
    const std::size_t still_gone = LossesOf(on).gone;
    EXPECT_LE(still_gone, losses.in_neither.size());
    back_by_import += losses.in_neither.size() - still_gone;
    EXPECT_EQ(on.HasRecord(), !losses.in_neither.empty()) << on.Restored();
    EXPECT_EQ(on.Restored() == "Everything was put back as it was.", losses.in_neither.empty());
  }
  EXPECT_GT(lost, 0U);
  EXPECT_GT(back_by_import, 0U);
}

// A value whose name holds a NUL, and a key that can't be read but deleted while the one above
// stays.
TEST_F(CompleteRestorePc, WhatCannotBeReadIsToldWhenItGoes) {
  ExactPc on(1);
  const std::string key = "HKEY_CURRENT_USER\\Software\\Made";
  on.pc.SetText(HKEY_CURRENT_USER, "Software\\Made\\Named", "a", "x");
  on.pc.MakeKey(HKEY_CURRENT_USER, "Software\\Made\\Kept\\Closed");
  on.pc.MakeKey(HKEY_CURRENT_USER, "Software\\Made\\Kept\\Stays");
  hosted::RegistryStore& store = hosted::HostedPc::Current().registry();
  const auto named = store.Open(store.Root(HKEY_CURRENT_USER), "Software\\Made\\Named");
  EXPECT_TRUE(store.SetValue(*named.target(), "a\0b"s, REG_BINARY, "x"));
  on.pc.DenyKey(key + "\\Kept\\Closed", KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS);
  on.pc.DenyKey(key + "\\Kept\\Stays", kDelete);
  on.window.lvInvalidLoc.Clear();
  for (const char* const below : {"\\Named", "\\Kept"}) {
    ListItem* item = on.window.lvInvalidLoc.Add({}, key + below);
    item->SetSubItem(kSelected, "1");
    item->SetSubItem(kTestCode, "APP");
  }
  cmdFix_Click(on.window);
  EXPECT_THAT(on.window.lblRepaired.Caption().String(),
              testing::EndsWith(". 1 could not be deleted (no rights to 1). "
                                "2 of them could not be recorded whole."));
  std::string script;
  AppendFromUtf16(on.pc.ReadFile(on.Record() + "\\registry.reg"), script);
  EXPECT_THAT(script, testing::HasSubstr("no call can write them: 000001\r\n"));
  on.Restore();
  EXPECT_EQ(on.pc.Text(HKEY_CURRENT_USER, "Software\\Made\\Named", "a"), "x");
  EXPECT_EQ(on.Restored(), "2 entries could not be put back. The record stays in this list.");
}

TEST_F(CompleteRestorePc, ARecordThatWasCutOrAlteredGivesBackWhatIsWhole) {
  ExactPc on(6);
  cmdFix_Click(on.window);
  const std::string script = on.pc.ReadFile(on.Record() + "\\registry.reg");
  const RecordContents all = ReadRecordScript(script);
  EXPECT_FALSE(all.cut);
  ASSERT_GT(all.pieces.size(), 5U);
  std::size_t before = 0;
  for (std::size_t size = 0; size < script.size(); size += 1 + size % 7) {
    const RecordContents part = ReadRecordScript(script.substr(0, size));
    EXPECT_TRUE(part.cut || size + 4 >= script.size()) << size;
    EXPECT_GE(part.pieces.size(), before) << size;
    before = part.pieces.size();
    std::string altered = script;
    altered[size] = static_cast<char>(altered[size] ^ 0x20);
    const RecordContents rest = ReadRecordScript(altered);
    EXPECT_GE(rest.pieces.size() + 1, all.pieces.size()) << size;
    EXPECT_GE(rest.pieces.size() + rest.damaged, all.pieces.size()) << size;
  }
  EXPECT_EQ(before, all.pieces.size());
}

}  // namespace
}  // namespace tidemark
