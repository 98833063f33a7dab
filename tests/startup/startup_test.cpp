#include "startup/startup.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "helpers/system_helpers.h"
#include "platform/file_system_object.h"
#include "registry/ini_access.h"
#include "registry/mdlRegistry.h"
#include "tests/support/settings.h"
#include "tests/support/special_folders.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

using Lines = std::vector<std::string>;

class StartupPc : public WindowPc {
 public:
  StartupPc() {
    UseOwnSpecialFolders(pc);
    ClearIni();
  }
  ~StartupPc() { ClearIni(); }

  // Name, command, location, state and kind.
  Lines Programs() const {
    return Rows(window.lvPrograms, {0, kCommand, kLocation, kEnabled, kKind});
  }
  ListItem& Row(const std::string& name) {
    for (int index = 1; index <= window.lvPrograms.Count(); ++index) {
      if (window.lvPrograms.Item(index)->Caption() == name) return *window.lvPrograms.Item(index);
    }
    throw std::out_of_range("no row " + name);
  }
  void Tick(const std::string& name, bool checked) {
    window.lvPrograms.UserCheck(Row(name), checked);
  }

  std::string win_ini = GetWindowsDir() + "\\win.ini";

 private:
  void ClearIni() {
    for (const char* section : {"SM_Disabled", "SM_DisabledWindows"}) {
      WritePrivateProfileStringA(section, nullptr, nullptr, win_ini.c_str());
    }
    for (const char* key : {"Load", "Run"}) {
      WritePrivateProfileStringA("Windows", key, nullptr, win_ini.c_str());
    }
  }
};

TEST(Startup, ListsEverySourceInOrderAndTheDisabledOnesBehindEach) {
  StartupPc on;
  const std::string once = "Software\\Microsoft\\Windows\\CurrentVersion\\";
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "user run", "C:\\Windows");
  on.pc.SetDword(HKEY_CURRENT_USER, kRun + "Once", "number", 1);
  on.pc.SetText(HKEY_CURRENT_USER, "-" + kRun, "user off", "C:\\gone.exe");
  on.pc.SetText(HKEY_LOCAL_MACHINE, kRun, "machine run", "m.exe");
  for (const char* key :
       {"RunOnce", "RunOnceEx", "RunOnceEx\\0001", "RunServices", "RunServicesOnce"}) {
    on.pc.SetText(HKEY_LOCAL_MACHINE, once + key, key, "x");
  }
  WriteIniValue("Windows", "Load", "C:\\Apps\\tool.exe /x", on.win_ini);
  WriteIniValue("SM_Disabled", "Load", "C:\\Apps\\", on.win_ini);
  WriteIniValue("Windows", "Run", "No", on.win_ini);
  WriteIniValue("SM_Disabled", "Run", "1", on.win_ini);
  loadPrograms(on.window);
  EXPECT_EQ(on.Programs(),
            (Lines{"user run|C:\\Windows|Registry\\Current User\\Run|Enabled|Reg",
                   "user off|C:\\gone.exe|Registry\\Current User\\Run|Disabled|Reg",
                   "number||Registry\\Current User\\Run Once|Enabled|Reg",
                   "machine run|m.exe|Registry\\All Users\\Run|Enabled|Reg",
                   "RunOnce|x|Registry\\All Users\\Run Once|Enabled|Reg",
                   "RunOnceEx|x|Registry\\All Users\\Run Once Ex|Enabled|Reg",
                   "RunServices|x|Registry\\All Users\\Run Services|Enabled|Reg",
                   "RunServicesOnce|x|Registry\\All Users\\Run Services Once|Enabled|Reg",
                   "tool|C:\\Apps\\tool.exe /x|Win.ini\\Load|Enabled|File",
                   "|C:\\Apps\\|Win.ini\\Load|Disabled|File"}));
  EXPECT_EQ(on.Row("user off").SubItem(kExists), "No");
  EXPECT_EQ(on.Row("user run").SubItem(kExists), "Yes");
  EXPECT_TRUE(on.Row("user run").Checked() && !on.Row("user off").Checked());
  on.window.lvPrograms.UserSelect(on.Row("tool"));
  EXPECT_EQ(on.window.lvPrograms.ToolTipText(), "C:\\Apps\\tool.exe /x");
}

TEST(Startup, ALocationTellsItsKey) {
  for (const auto& [location, root, key] :
       {std::tuple{"REGISTRY\\all users\\Run", HKEY_LOCAL_MACHINE, ""},
        {"Registry\\Current User\\Run Once", HKEY_CURRENT_USER, "RunOnce"},
        {"Win.ini\\Run", HKEY_CURRENT_USER, ""}}) {
    EXPECT_EQ(GetHKey(location), root) << location;
    const std::string path = GetSubKey(location);
    EXPECT_EQ(path.substr(path.rfind('\\') + 1), key) << location;
  }
}

TEST(Startup, ThePageMarksWhatIsBrokenAndItsOwnEntryAndOffersWhatCanBeDone) {
  StartupPc on;
  const std::string own = on.pc.program_folder() + "\\tidemark.exe";
  on.pc.MakeFile(own);
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "gone", "C:\\gone.exe");
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "own", own + " /m");
  on.pc.SetDword(HKEY_CURRENT_USER, kRun, "number", 1);
  loadPrograms(on.window);
  const auto seen = [&](const char* name) {
    on.window.lvPrograms.UserSelect(on.Row(name));
    return std::to_string(on.Row(name).SmallIcon()) +
           (on.window.cmdWriteBack.Enabled() ? " write " : " ") +
           on.window.lblProgramNote.Caption().String().substr(0, 12);
  };
  EXPECT_FALSE(on.window.cmdDeleteEntry.Enabled());
  EXPECT_EQ(seen("gone"), "1 write What this en");
  EXPECT_EQ(seen("own"), "2 write Tidemark's o");
  EXPECT_EQ(seen("number"), "0 ");
  EXPECT_EQ(on.Row("own").SubItem(6), "Registry\\Current User\\Run");
  EXPECT_TRUE(on.window.cmdDeleteEntry.Enabled());
  on.window.cmdDeleteEntry.Click();
  EXPECT_EQ(on.front_end.messages().size(), 1U) << "it asks first";
}

TEST(Startup, ARegistryEntryGoesToItsTwinAndComesBackUnchanged) {
  const TestValue values[] = {{REG_SZ, std::string("C:\\App \xC3\xA4.exe -x\0", 18)},
                              {REG_EXPAND_SZ, std::string("%SystemRoot%\\a.exe\0", 19)},
                              {REG_BINARY, "\1"}};
  for (const TestValue& value : values) {
    StartupPc on;
    on.pc.SetBinary(HKEY_CURRENT_USER, kRun, "app", value.bytes, value.type);
    loadPrograms(on.window);
    on.Tick("app", false);
    EXPECT_EQ(on.pc.Value(HKEY_CURRENT_USER, "-" + kRun, "app"), value);
    EXPECT_FALSE(on.pc.Value(HKEY_CURRENT_USER, kRun, "app"));
    EXPECT_EQ(on.Row("app").SubItem(kEnabled), "Disabled");
    on.Tick("app", true);
    EXPECT_EQ(on.pc.Value(HKEY_CURRENT_USER, kRun, "app"), value);
    EXPECT_FALSE(on.pc.Value(HKEY_CURRENT_USER, "-" + kRun, "app"));
    on.window.lvPrograms.UserContextMenu(on.window.lvPrograms.Item(1));
    EXPECT_EQ(on.window.mnuAddNew.Enabled(), value.type == REG_SZ) << "it would be emptied";
  }
}

TEST(Startup, AnEntryWithoutACommandIsNeverMovedAsAnEmptyText) {
  StartupPc on;
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "app", "%x%", REG_EXPAND_SZ);
  on.pc.SetText(HKEY_CURRENT_USER, kRun, std::string(300, 'n'), "too long a name to be walked");
  loadPrograms(on.window);
  EXPECT_EQ(on.window.lvPrograms.Count(), 1) << "and not as the default value";
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "app", "C:\\new.exe");
  on.Tick("app", false);
  EXPECT_EQ(on.pc.Text(HKEY_CURRENT_USER, "-" + kRun, "app"), "C:\\new.exe");
  DeleteRegValue(HKEY_CURRENT_USER, "-" + kRun, "app");
  on.Tick("app", true);
  EXPECT_EQ(on.front_end.messages(), Lines{"Program not enabled: Unable to enable this program"});
  EXPECT_FALSE(on.pc.Value(HKEY_CURRENT_USER, kRun, "app"));
}

TEST(Startup, AnEntryThatCannotBeMovedStaysAndSaysSo) {
  StartupPc on;
  if (!on.pc.CanFault()) GTEST_SKIP() << "only a hosted PC can deny a key";
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "app", "a.exe");
  on.pc.MakeKey(HKEY_CURRENT_USER, "-" + kRun);
  loadPrograms(on.window);
  on.pc.DenyKey("HKEY_CURRENT_USER\\-" + kRun);
  on.Tick("app", false);
  EXPECT_EQ(on.front_end.messages(), Lines{"Program not disabled: Unable to disable this program"});
  EXPECT_TRUE(on.pc.Value(HKEY_CURRENT_USER, kRun, "app"));
  EXPECT_FALSE(on.Row("app").Checked()) << "the tick stays as the person set it";
  EXPECT_EQ(on.Row("app").SubItem(kEnabled), "Enabled");
}

TEST(Startup, WinIniKeepsAWordInsteadOfTheCommandAndLoadIsLost) {
  // A live command and a disabled one, the row that is switched or deleted, and what the sections
  // Windows, SM_Disabled and SM_DisabledWindows hold then.
  constexpr bool kDelete = true;
  const struct {
    const char *key, *live, *off, *row;
    bool what;
    const char* left;
  } kCases[] = {
      {"Run", "C:\\gone\\r.exe", "", "r", !kDelete, "|No|"},
      {"Load", "C:\\Windows", "C:\\o.exe", "Windows", !kDelete, "|C:\\o.exe|Yes"},
      {"Run", "C:\\l.exe", "C:\\gone\\r.exe", "r", !kDelete, "No||"},
      {"Load", "C:\\l.exe", "C:\\gone\\r.exe", "r", !kDelete, "No||"},
      {"Run", "C:\\l.exe", "C:\\r.exe", "r", kDelete, "C:\\l.exe||"},
      {"Load", "C:\\l.exe", "C:\\r.exe", "r", kDelete, "C:\\l.exe||"},
      {"Load", "C:\\l.exe", "C:\\r.exe", "l", kDelete, "|C:\\r.exe|"},
  };
  for (const auto& one : kCases) {
    StartupPc on;
    WriteIniValue("Windows", one.key, one.live, on.win_ini);
    WriteIniValue("SM_Disabled", one.key, one.off, on.win_ini);
    loadPrograms(on.window);
    if (one.what == kDelete) {
      DeleteProgram(on.window, on.Row(one.row));
    } else {
      on.Tick(one.row, !on.Row(one.row).Checked());
    }
    std::string left;
    for (const char* section : {"Windows", "SM_Disabled", "SM_DisabledWindows"}) {
      left +=
          (left.empty() && *section == 'W' ? "" : "|") + ReadIniValue(section, one.key, on.win_ini);
    }
    EXPECT_EQ(left, one.left) << one.key << ' ' << one.row;
  }
}

TEST(Startup, AWinIniThatCanNotBeWrittenLeavesTheRow) {
  StartupPc on;
  if (!on.pc.CanFault()) GTEST_SKIP() << "only a hosted PC can deny a file";
  for (const char* key : {"Load", "Run"}) WriteIniValue("Windows", key, key, on.win_ini);
  loadPrograms(on.window);
  const Lines before = on.Programs();
  on.pc.DenyFile(on.win_ini);
  for (const char* row : {"Load", "Run"}) on.Tick(row, false);
  EXPECT_EQ(on.front_end.messages(),
            (Lines{"Program can't be disabled: Unable to disable program",
                   "Program can not be disabled: Unable to disable program"}));
  EXPECT_EQ(on.Programs(), before);
}

TEST(Startup, AFileOfAStartupFolderMovesAndIsLostWithoutAStore) {
  StartupPc on;
  const std::string live = GetSpecialFolderPath(CSIDL_STARTUP) + "\\tm-test.reg";
  const std::string store = on.pc.program_folder() + "\\Startup Folder\\Current User";
  on.pc.MakeFile(live, "text");
  on.pc.MakeFolder(store);
  loadPrograms(on.window);
  EXPECT_EQ(on.Row("tm-test.reg").SubItem(kKind), "File");
  on.Tick("tm-test.reg", false);
  EXPECT_FALSE(on.pc.FileExists(live));
  EXPECT_EQ(on.pc.ReadFile(store + "\\tm-test.reg"), "text");
  on.Tick("tm-test.reg", true);
  EXPECT_EQ(on.pc.ReadFile(live), "text");
  EXPECT_FALSE(on.pc.FileExists(store + "\\tm-test.reg"));
  on.window.application.folder = on.pc.folder() + "\\elsewhere";
  loadPrograms(on.window);
  EXPECT_EQ(on.Programs(),
            (Lines{"tm-test.reg|tm-test.reg|Startup Folder\\Current User|Enabled|File",
                   "tm-test.reg|tm-test.reg|Startup Folder\\Current User|Disabled|File"}))
      << "the list of files stays where it was, and its files are listed once more";
  on.Tick("tm-test.reg", false);
  EXPECT_FALSE(on.pc.FileExists(live)) << "the copy failed, the delete did not";
}

TEST(Startup, ALinkIsWrittenMovedAndDeletedByItsName) {
  StartupPc on;
  const std::string live = GetSpecialFolderPath(CSIDL_COMMON_STARTUP) + "\\tool.lnk";
  const std::string store = on.pc.program_folder() + "\\Startup Folder\\All Users\\tool.lnk";
  on.pc.MakeFolder(on.pc.program_folder() + "\\Startup Folder\\All Users");
  // The list of files shows no links, so the row is made by hand, each time anew.
  for (const bool written : {false, true}) {
    AddtoRunList(on.window, "tool", "C:\\Windows", "Startup Folder\\All Users", true, "Lnk");
    on.Row("tool").SetChecked(true);
    if (!written) AddNew(on.window, on.Row("tool"));
    EXPECT_TRUE(on.pc.FileExists(live));
  }
  on.Tick("tool", false);
  EXPECT_FALSE(on.pc.FileExists(live));
  EXPECT_TRUE(on.pc.FileExists(store));
  DeleteProgram(on.window, on.Row("tool"));
  EXPECT_FALSE(on.pc.FileExists(store));
  on.pc.MakeFile(live, "another");
  AddtoRunList(on.window, "tool", "C:\\Windows", "Startup Folder\\All Users", true, "Lnk");
  AddNew(on.window, on.Row("tool"));
  EXPECT_EQ(on.front_end.messages(),
            (Lines{"Tidemark: The link file: \"" + live + "\" exists. Replace it?",
                   "New item creation failour: Unable to add new item"}));
  EXPECT_EQ(on.pc.ReadFile(live), "another");
}

TEST(Startup, WhatWasDeletedOrOverwrittenIsPutBack) {
  StartupPc on;
  const std::string file = GetSpecialFolderPath(CSIDL_STARTUP) + "\\tm-test.reg";
  on.pc.MakeFile(file, "text");
  on.pc.SetBinary(HKEY_CURRENT_USER, kRun, "app", "%x%", REG_EXPAND_SZ);
  on.pc.MakeFile(on.pc.folder() + "\\r.exe");
  const auto run = [&on] { return ReadProfileText("Windows", "Run", on.win_ini, 1000); };
  // The list shows no more than the first 126 characters.
  const std::string command = on.pc.folder() + "\\r.exe\" \t" + std::string(200, 'x') + " \"y";
  WriteIniValue("Windows", "Run", "\"\"" + command + "\"\"", on.win_ini);
  const std::string before_run = run();
  WriteIniValue("Windows", "Load", "C:\\gone\\l.exe", on.win_ini);
  loadPrograms(on.window);
  const Lines before = on.Programs();
  on.Tick("r", false);
  for (const char* name : {"l", "app", "tm-test.reg"}) DeleteProgram(on.window, on.Row(name));
  EXPECT_EQ(ReadIniValue("SM_Disabled", "Run", on.win_ini), "Yes");
  EXPECT_FALSE(on.pc.FileExists(file));
  EXPECT_EQ(on.pc.Value(HKEY_CURRENT_USER, kRun, "app"), std::nullopt);
  for (const char* number : {"", "7", "3", "1", "1", "1"}) {  // those that there are: 4 at first
    on.front_end.AnswerInput(number);
    on.front_end.ChooseFromMenu(on.window.mnuPutBack);
    on.window.lvPrograms.UserContextMenu(nullptr);
  }
  EXPECT_EQ(on.Programs(), before);
  EXPECT_EQ(run(), before_run);
  EXPECT_EQ(on.pc.ReadFile(file), "text");
  EXPECT_EQ(on.pc.Value(HKEY_CURRENT_USER, kRun, "app"),
            (TestValue{REG_EXPAND_SZ, std::string("%x%\0", 4)}));
  on.window.mnuPutBack.Click();
  EXPECT_EQ(on.front_end.messages().back(), "Tidemark: There is no entry to put back.");
  // What stands in the place by then can be put back in its turn.
  DeleteProgram(on.window, on.Row("app"));
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "app", "new.exe");
  for (const char* text : {"%x%", "new.exe"}) {
    on.front_end.AnswerInput("1");
    on.window.mnuPutBack.Click();
    EXPECT_EQ(on.pc.Text(HKEY_CURRENT_USER, kRun, "app"), text);
  }
}

// The folder of the only record.
std::string RecordOf(const StartupPc& on) {
  FileSystemObject::Folder found;
  const std::string records = on.pc.program_folder() + "\\backup\\complete\\startup";
  if (FileSystemObject().GetFolder(records, found)) return "";
  return found.SubFolders().empty() ? "" : found.PathOf(found.SubFolders().front());
}

TEST(Startup, ADamagedRecordIsToldAndStays) {
  const struct {
    bool ini;
    const char* file;
    std::size_t cut_bytes;  // from its end; all of them if there are fewer
  } kCases[] = {{false, "\\registry.reg", 100},
                {false, "\\registry.reg", 10'000},
                {true, "\\entry.txt", 30},
                {true, "\\entry.txt", 10'000}};
  for (const auto& test : kCases) {
    StartupPc on;
    if (test.ini) {
      WriteIniValue("Windows", "Run", "C:\\gone tool.exe", on.win_ini);
    } else {
      on.pc.SetText(HKEY_CURRENT_USER, kRun, "app", "a.exe");
    }
    loadPrograms(on.window);
    const std::string name = test.ini ? "gone tool" : "app";
    DeleteProgram(on.window, on.Row(name));
    const std::string file = RecordOf(on) + test.file;
    const std::string bytes = on.pc.ReadFile(file);
    on.pc.MakeFile(file, bytes.substr(0, bytes.size() - std::min(bytes.size(), test.cut_bytes)));
    on.front_end.AnswerInput("1");
    on.window.mnuPutBack.Click();
    EXPECT_THAT(on.front_end.messages().back(), testing::EndsWith("Its record stays."));
    EXPECT_NE(RecordOf(on), "");
  }
}

TEST(Startup, ANameWithTabsWritesNothingIntoWinIni) {
  for (const char* const name : {"Windows\tRun\tevil.exe", "x\r\ny\r\nWindows\tRun\tevil.exe"}) {
    StartupPc on;
    on.pc.SetText(HKEY_CURRENT_USER, kRun, name, "a.exe");
    WriteIniValue("Windows", "Run", "mine.exe", on.win_ini);
    loadPrograms(on.window);
    DeleteProgram(on.window, on.Row(name));
    on.front_end.AnswerInput("1");
    on.window.mnuPutBack.Click();
    EXPECT_EQ(ReadProfileText("Windows", "Run", on.win_ini, 1000), "mine.exe");
    EXPECT_EQ(on.pc.Text(HKEY_CURRENT_USER, kRun, name), "a.exe");
    EXPECT_EQ(RecordOf(on), "");
  }
}

TEST(Startup, WhatTheDiskHasNoRoomToRecordIsTold) {
  if (!TestPc::CanFault()) GTEST_SKIP();
  StartupPc on;
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "app", "a.exe");
  loadPrograms(on.window);
  on.pc.FillDisk(0);
  DeleteProgram(on.window, on.Row("app"));
  on.pc.FillDisk(std::nullopt);
  EXPECT_THAT(on.front_end.messages(),
              testing::ElementsAre(
                  "Tidemark: Not all of the entry could be recorded, to be put back later."));
}

TEST(Startup, TheMenuWritesBackAndDeletesAfterAQuestion) {
  StartupPc on;
  on.pc.SetText(HKEY_CURRENT_USER, "-" + kRun, "app", "a.exe");
  loadPrograms(on.window);
  const auto choose = [&on](MenuItem& item) {
    on.front_end.ChooseFromMenu(item);
    on.window.lvPrograms.UserContextMenu(on.window.lvPrograms.Item(1));
  };
  choose(on.window.mnuAddNew);
  choose(on.window.mnuDeleteProgram);
  EXPECT_EQ(on.window.lvPrograms.Count(), 1) << "no question was answered with yes";
  on.front_end.AnswerYesNo(true);
  choose(on.window.mnuAddNew);
  EXPECT_EQ(on.pc.Text(HKEY_CURRENT_USER, kRun, "app"), "a.exe");
  EXPECT_EQ(on.window.lvPrograms.Count(), 2);
  on.front_end.AnswerYesNo(true);
  choose(on.window.mnuDeleteProgram);
  EXPECT_FALSE(on.pc.Value(HKEY_CURRENT_USER, kRun, "app"));
  EXPECT_TRUE(on.pc.Value(HKEY_CURRENT_USER, "-" + kRun, "app"));
}

TEST(Startup, TheBackgroundFollowsTheNumberOfRows) {
  StartupPc on;
  for (const auto& [number, rows, alignment] :
       {std::tuple{"0", 0, 5}, {"12", 12, 0}, {"6Plus", 13, 5}}) {
    const std::string picture = "\\images\\chk_Problems" + std::string(number) + ".jpg";
    on.pc.MakeFile(on.pc.program_folder() + picture);
    for (int row = 0; row < rows; ++row) {
      on.pc.SetText(HKEY_CURRENT_USER, kRun, "p" + std::to_string(row), "x");
    }
    loadPrograms(on.window);
    EXPECT_EQ(on.window.lvPrograms.PictureFile(), on.pc.program_folder() + picture);
    EXPECT_EQ(on.window.lvPrograms.PictureAlignment(), alignment) << number;
  }
}

}  // namespace
}  // namespace tidemark
