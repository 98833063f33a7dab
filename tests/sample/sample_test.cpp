// From a start to a repair and back, on a copy of the sample PC.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "platform/hosted/clock.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/pc_settings.h"
#include "platform/letter_case.h"
#include "platform/program_start.h"
#include "platform/unique_handle.h"
#include "scan/results.h"
#include "shell/main_window.h"
#include "shell/wiring.h"
#include "startup/startup.h"
#include "toolkit/script_front_end.h"
#include "window/frmMain.h"

namespace tidemark {
namespace {

namespace fs = std::filesystem;

class SampleCopy {
 public:
  SampleCopy()
      : folder(fs::temp_directory_path() / ("tidemark-sample-" + std::to_string(getpid()))) {
    fs::remove_all(folder);
    fs::copy(fs::path(TIDEMARK_SOURCE_FOLDER) / "sample", folder, fs::copy_options::recursive);
  }
  ~SampleCopy() {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }
  SampleCopy(const SampleCopy&) = delete;
  SampleCopy& operator=(const SampleCopy&) = delete;

  fs::path folder;
};

struct SamplePc {
  SamplePc()
      : pc(copy.folder), window(front_end, Application{.folder = pc.settings().program_folder}) {
    pc.clock().SetLocalTime({2006, 11, 6, 4, 13, 5, 9, 0});
    BindHandlers(window);
    Main(window);
  }
  // The findings and the start-up programs, the columns between tabs.
  std::vector<std::string> Findings() const {
    return Rows(window.lvInvalidLoc, {kTestCode, 0, kValueName, kValueData, kReason, kValueType});
  }
  std::vector<std::string> Programs() const {
    return Rows(window.lvPrograms, {0, kCommand, kExists, kLocation, kEnabled, kKind});
  }
  static std::vector<std::string> Rows(const ListView& list, const std::vector<int>& columns) {
    std::vector<std::string> rows;
    for (int index = 1; index <= list.Count(); ++index) {
      const ListItem& row = *list.Item(index);
      std::string text;
      for (const int column : columns) {
        text += (column == 0 ? row.Caption() : row.SubItem(column)).String() + "\t";
      }
      text.pop_back();
      rows.push_back(text);
    }
    return rows;
  }

  SampleCopy copy;
  hosted::HostedPc pc;
  ScriptFrontEnd front_end;
  frmMain window;
};

struct StoredValue {
  DWORD type = 0;
  std::string bytes;
  bool operator==(const StoredValue&) const = default;
};

// Every key as "key\" and every value as "key\\name".
using Snapshot = std::map<std::string, StoredValue>;

void TakeKey(HKEY root, const std::string& path, Snapshot& snapshot) {
  HKEY opened = nullptr;
  if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return;
  const UniqueKey key(opened);
  snapshot[path + "\\"] = {};
  std::vector<char> name(1000);
  std::vector<BYTE> data(100'000);
  for (DWORD index = 0;; ++index) {
    DWORD name_size = static_cast<DWORD>(name.size());
    DWORD data_size = static_cast<DWORD>(data.size());
    StoredValue value;
    if (RegEnumValueA(key.Get(), index, name.data(), &name_size, nullptr, &value.type, data.data(),
                      &data_size) != ERROR_SUCCESS) {
      break;
    }
    value.bytes.assign(data.begin(), data.begin() + data_size);
    snapshot[path + "\\\\" + name.data()] = value;
  }
  for (DWORD index = 0; RegEnumKeyA(key.Get(), index, name.data(), 1000) == ERROR_SUCCESS;
       ++index) {
    TakeKey(root, path.empty() ? name.data() : path + "\\" + name.data(), snapshot);
  }
}

Snapshot TakeSnapshot() {
  Snapshot snapshot;
  TakeKey(HKEY_LOCAL_MACHINE, "", snapshot);
  TakeKey(HKEY_CURRENT_USER, "", snapshot);
  // The classes are looked at as the program sees them: an undo file puts back into the machine's
  // what was the user's alone.
  std::erase_if(snapshot, [](const auto& entry) {
    const std::string name = UpperCase(entry.first);
    return name.starts_with("SOFTWARE\\TIDEMARK") || name.starts_with("SOFTWARE\\CLASSES");
  });
  TakeKey(HKEY_CLASSES_ROOT, "", snapshot);
  return snapshot;
}

// What a value record is told not to carry: any type but text, binary and double word comes back as
// text, and a text with a quote in it is refused by the editor.
bool IsCarriedByValueRecords(const StoredValue& value) {
  return (value.type == REG_SZ && value.bytes.find('"') == std::string::npos) ||
         value.type == REG_BINARY || value.type == REG_DWORD;
}

void ExpectLinesOf(const std::string& name, const std::vector<std::string>& rows) {
  std::ifstream file(fs::path(TIDEMARK_SOURCE_FOLDER) / "tests/sample" / name);
  std::vector<std::string> expected;
  for (std::string line; std::getline(file, line);) expected.push_back(line);
  ASSERT_EQ(rows.size(), expected.size());
  for (std::size_t row = 0; row < rows.size(); ++row) EXPECT_EQ(rows[row], expected[row]);
}

TEST(Sample, ShowsTheFindingsThatItsReadmeTells) {
  SamplePc on;
  ExpectLinesOf("expected_rows.txt", on.Findings());
  EXPECT_EQ(on.window.lvFound.Count(), 12) << "one row for each diagnostic test";
}

TEST(Sample, ListsWhatStartsWithItFromAllSources) {
  SamplePc on;
  on.window.cmdMenuAdvanced.Click();
  on.window.lblOptions(2).Click();
  ExpectLinesOf("expected_programs.txt", on.Programs());
  // What is switched off and on again is as it was, but for the two keys of win.ini.
  const std::vector<std::string> before = on.Programs();
  const Snapshot registry = TakeSnapshot();
  ListView& list = on.window.lvPrograms;
  for (const bool checked : {false, true}) {
    for (int row = 1; row <= list.Count(); ++row) {
      ListItem& program = *list.Item(row);
      const bool was_enabled =
          before[static_cast<std::size_t>(row - 1)].find("\tEnabled\t") != std::string::npos;
      if (program.SubItem(kLocation).String().starts_with("Win.ini")) continue;
      if (program.SubItem(kCommand).String().empty()) continue;
      list.UserCheck(program, checked == was_enabled);
    }
  }
  EXPECT_EQ(TakeSnapshot(), registry);
  on.window.lblOptions(2).Click();
  std::vector<std::string> after = on.Programs();
  EXPECT_TRUE(std::is_permutation(before.begin(), before.end(), after.begin(), after.end()));
  EXPECT_TRUE(on.front_end.messages().empty());
}

TEST(Sample, ListsTheJunkThatItsReadmeTells) {
  SamplePc on;
  on.window.cmdCleanJunk.Click();
  for (int drive = 1; drive <= on.window.tvDrives.Count(); ++drive) {
    on.window.tvDrives.UserCheck(*on.window.tvDrives.Node(drive), true);
  }
  on.window.cmdJunkScan.Click();
  std::vector<std::string> rows;
  for (int row = 1; row <= on.window.lvJunkFiles.Count(); ++row) {
    const ListItem& file = *on.window.lvJunkFiles.Item(row);
    rows.push_back(file.Caption().String() + "\t" + file.SubItem(1).String() + "\t" +
                   file.SubItem(2).String() + "\t" + file.SubItem(5).String());
  }
  ExpectLinesOf("expected_junk.txt", rows);
}

TEST(Sample, ARepairIsTakenBackByItsUndoFile) {
  SamplePc on;
  const Snapshot before = TakeSnapshot();
  on.window.cmdFix.Click();
  const Snapshot repaired = TakeSnapshot();
  EXPECT_LT(repaired.size() + 80, before.size());
  const auto is_file = [](const std::string& path) {
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
  };
  EXPECT_FALSE(is_file("C:\\Users\\anna\\Desktop\\Quillmoor Fax.lnk"));
  EXPECT_TRUE(is_file(on.window.application.folder + "\\backup\\Quillmoor Fax.lnk"));
  EXPECT_TRUE(is_file("C:\\Users\\anna\\Desktop\\Weather.lnk"));

  const std::string undo = on.window.application.folder + "\\backup\\undo_060411_130510.reg";
  ASSERT_EQ(GetFileAttributesA(undo.c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0U) << undo;
  ASSERT_TRUE(StartProgram("regedit /s \"" + undo + "\"", WindowStyle::kMinimizedFocus));
  Sleep(1000);
  const Snapshot restored = TakeSnapshot();
  int not_carried = 0;
  for (const auto& [name, value] : before) {
    const auto found = restored.find(name);
    if (found != restored.end() && found->second == value) continue;
    EXPECT_FALSE(IsCarriedByValueRecords(value)) << name;
    ++not_carried;
  }
  EXPECT_LT(not_carried, 20);
}

TEST(Sample, WhatWasRepairedIsStoredInThePcFolder) {
  SampleCopy copy;
  const auto registry_text = [&copy] {
    std::ifstream file(copy.folder / "registry.reg", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  const std::string before = registry_text();
  {
    hosted::HostedPc pc(copy.folder);
    ASSERT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Classes\\CLSID"), ERROR_SUCCESS);
  }
  EXPECT_EQ(registry_text(), before) << "pulling the plug changes nothing";
  {
    hosted::HostedPc pc(copy.folder);
    ASSERT_EQ(SHDeleteKeyA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Classes\\CLSID"), ERROR_SUCCESS);
    pc.ShutDown();
  }
  hosted::HostedPc pc(copy.folder);
  HKEY key = nullptr;
  EXPECT_EQ(RegOpenKeyA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Classes\\CLSID", &key),
            ERROR_FILE_NOT_FOUND);
}

}  // namespace
}  // namespace tidemark
