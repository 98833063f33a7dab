#include "repair/repair.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "helpers/settings_key.h"
#include "registry/mdlRegistry.h"
#include "scan/scan.h"
#include "tests/support/settings.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

struct FindingRow {
  const char* code;
  std::string key;
  std::string name;
  std::string data;
  const char* type = "1";
  const char* selected = "1";
};

struct RepairPc : WindowPc {
  RepairPc() {
    window.picWelcome.SetVisible(false);
    window.picClear.SetVisible(true);
    window.cmdStopFix.SetEnabled(true);
  }

  void AddFinding(const FindingRow& row) {
    ListItem* item =
        window.lvInvalidLoc.Add("K" + std::to_string(window.lvInvalidLoc.Count() + 1), row.key);
    item->SetSubItem(kValueName, row.name);
    item->SetSubItem(kValueData, row.data);
    item->SetSubItem(kValueType, row.type);
    item->SetSubItem(kSelected, row.selected);
    item->SetSubItem(kTestCode, row.code);
    ++window.ProblemCount;
  }
};

TEST(Repair, TakesTheKeyOrTheValueThatATestStandsFor) {
  struct Case {
    const char* code;
    std::string leaf;  // of the key HKCR\Made\{1}\leaf
    std::string name;
    bool value_left;
    bool key_left;
    bool class_left;
  };
  const std::vector<Case> cases = {
      {"APP", "x", "v", false, false, true},
      {"VDD", "x", "v", false, false, true},
      {"UNINSTALL", "x", "v", false, false, true},
      {"IFA", "x", "v", false, false, true},
      {"HELP", "x", "v", false, true, true},
      {"DLL", "x", "v", false, true, true},
      {"FONT", "x", "v", false, true, true},
      {"STARTUP", "x", "", false, true, true},
      {"INTERFACE", "x", "v", false, true, true},
      {"INTERFACE", "x", "", false, false, true},
      {"LIB", "x", "", false, false, true},
      {"CLSID", "x", "", false, false, true},
      {"CLSID", "inprocserver32", "", false, false, false},
      {"CLSID", "InprocServer", "", false, false, false},
      {"CLSID", "InprocServer32", "v", false, true, true},
      {"clsid", "InprocServer32", "v", true, true, true},  // no test's code
  };
  for (const Case& one : cases) {
    RepairPc on;
    const std::string made = "Made\\{1}\\" + one.leaf;
    on.pc.SetText(HKEY_CLASSES_ROOT, made, one.name, "data");
    on.AddFinding({one.code, "HKEY_CLASSES_ROOT\\" + made, one.name, "data"});
    cmdFix_Click(on.window);
    const std::string label = std::string(one.code) + " " + one.leaf + " '" + one.name + "'";
    EXPECT_EQ(on.pc.KeyExists(HKEY_CLASSES_ROOT, made), one.key_left) << label;
    EXPECT_EQ(on.pc.KeyExists(HKEY_CLASSES_ROOT, "Made\\{1}"), one.class_left) << label;
    EXPECT_EQ(GetRegString(HKEY_CLASSES_ROOT, made, one.name, "gone"),
              one.value_left ? "data" : "gone")
        << label;
  }
}

TEST(Repair, KeepsTheRowsThatWereUnticked) {
  RepairPc on;
  for (const char* name : {"a", "b", ""}) on.pc.SetText(HKEY_CURRENT_USER, "Made", name, "data");
  on.AddFinding({"STARTUP", "HKEY_CURRENT_USER\\Made", "a", "data", "1", "0"});
  on.AddFinding({"STARTUP", "HKEY_CURRENT_USER\\Made", "b", "data", "1", "no number"});
  on.AddFinding({"STARTUP", "HKEY_CURRENT_USER\\Made", "", "data", "1", ""});
  on.window.SeverityCounts = {0, 0, 3, 0, 0};
  cmdFix_Click(on.window);
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, "Made", "a"), "data");
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, "Made", "b", "gone"), "gone");
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, "Made", "", "gone"), "gone");
  EXPECT_EQ(on.window.SeverityCounts[2], 1);
  EXPECT_EQ(on.UndoText(),
            "REGEDIT4\r\n\r\n"
            "[HKEY_CURRENT_USER\\Made]\r\n\"b\"=\"data\"\r\n\r\n"
            "[HKEY_CURRENT_USER\\Made]\r\n@=\"data\"\r\n\r\n");
  EXPECT_EQ(on.window.lvInvalidLoc.Count(), 3);
  EXPECT_TRUE(on.window.picWelcome.Visible());
}

TEST(Repair, AStopFinishesTheRowInWorkAndClosesAsUsual) {
  RepairPc on;
  for (const char* name : {"a", "b", "c", "d"}) {
    on.pc.SetText(HKEY_CURRENT_USER, "Made", name, "data");
    on.AddFinding({"STARTUP", "HKEY_CURRENT_USER\\Made", name, "data"});
  }
  on.front_end.AtYield(2, [&on] {
    on.window.cmdMenuHome.Click();
    on.window.cmdMenuScan.Click();  // the way back
    EXPECT_TRUE(on.window.picClear.Visible() && !on.window.picScan.Visible());
    on.window.cmdStopFix.Click();
  });
  cmdFix_Click(on.window);
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, "Made", "b", "gone"), "gone");
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, "Made", "c", "gone"), "data");
  EXPECT_FALSE(on.window.cmdStopFix.Visible());
  EXPECT_TRUE(on.window.cmdFix.Visible());
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, kSettingsKey, "OutstandingErrors"), "0");
  // The flag is still set, and ends the next run behind its first row.
  cmdFix_Click(on.window);
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, "Made", "c", "gone"), "data");
}

TEST(Repair, EndsWhereAScanFillsTheListAnew) {
  RepairPc on;
  for (const char* name : {"a", "b", "c"}) {
    on.pc.SetText(HKEY_CURRENT_USER, kRun, name, "C:\\no such folder\\gone.exe");
    on.AddFinding({"STARTUP", std::string("HKEY_CURRENT_USER\\") + kRun, name, "data", "1",
                   *name == 'b' ? "0" : "1"});
  }
  Store("Startup", "0");
  on.window.SetInitValues();
  on.front_end.AtYield(1, [&on] {
    cmdScan_Click(on.window);
    on.window.lblRepaired.SetCaption("what a younger repair has told");
  });
  cmdFix_Click(on.window);
  EXPECT_EQ(on.window.lblRepaired.Caption(), "what a younger repair has told");
  EXPECT_EQ(on.NamesAndReasons(), (std::vector<std::string>{"b|Invalid path", "c|Invalid path"}));
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, kRun, "b", "gone"), "C:\\no such folder\\gone.exe");
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, kSettingsKey, "OutstandingErrors"), "2");
  EXPECT_TRUE(on.window.picClear.Visible()) << "the scan's results are looked at first";
  EXPECT_EQ(on.window.lvProblems.Count(), 2);
  EXPECT_TRUE(on.window.cmdFix.Visible() && on.window.cmdFix.Enabled());
  EXPECT_FALSE(on.window.cmdStopFix.Visible());
  EXPECT_TRUE(on.window.cmdStopFix.Enabled());
}

TEST(Repair, HidesItsButtonsWhileItRunsAndClosesWithAllSteps) {
  RepairPc on;
  int backups_listed = 0;
  on.window.Loadbackup.Bind([&backups_listed] { ++backups_listed; });
  on.AddFinding({"STARTUP", "HKEY_CURRENT_USER\\Made", "a", "data", "1", "0"});
  bool seen = false;
  on.front_end.AtYield(1, [&] {
    seen = on.window.cmdStopFix.Visible() && !on.window.cmdFix.Visible() &&
           !on.window.cmdCancel.Visible();
    EXPECT_EQ(on.window.ProgressBar2.Value(), 1) << "also for a row that was unticked";
  });
  on.window.cmdFix.Click();
  EXPECT_TRUE(seen);
  EXPECT_EQ(on.window.ProgressBar2.Value(), 0);
  EXPECT_EQ(backups_listed, 3) << "Home, the repair's own end, the settings";
  EXPECT_EQ(on.UndoText(), "") << "nothing was repaired";
}

TEST(Repair, NoRowCanEmptyAWholeRootNorSilenceTheNextScan) {
  RepairPc on;
  on.pc.SetText(HKEY_CLASSES_ROOT, "Made.Type", "a", "data");
  for (const char* key : {"HKEY_CLASSES_ROOT\\", "HKEY_CLASSES_ROOT\\\\", "HKEY_CLASSES_ROOT"}) {
    on.AddFinding({"IFA", key, "", ""});
    on.AddFinding({"APP", key, "", ""});
  }
  cmdFix_Click(on.window);
  EXPECT_EQ(GetRegString(HKEY_CLASSES_ROOT, "Made.Type", "a"), "data");
  EXPECT_FALSE(IsInIngnoreList(on.window.IgnoreList, "\\Made.Type a data"));
}

TEST(Repair, AKeyThatCannotBeDeletedIsSafeListed) {
  RepairPc on;
  if (!on.pc.CanFault()) GTEST_SKIP() << "access can't be denied on this ground";
  const std::string list = on.pc.program_folder() + "\\Ignorelst.ini";
  on.pc.MakeFile(list, "");
  on.pc.SetText(HKEY_CLASSES_ROOT, "Made.Type", "x", "data");
  on.pc.DenyKey("HKEY_CLASSES_ROOT\\Made.Type");
  on.AddFinding({"IFA", "HKEY_CLASSES_ROOT\\Made.Type", "", ""});
  on.AddFinding({"APP", "HKEY_CLASSES_ROOT\\Made.Type", "", ""});
  on.AddFinding({"CLSID", "HKEY_CLASSES_ROOT\\NoBrace\\InprocServer32", "", ""});
  cmdFix_Click(on.window);
  EXPECT_EQ(on.pc.ReadFile(list), "Made.Type\r\nabcdefgh\r\n");
}

TEST(Repair, ABrokenLinkIsKeptInTheBackupFolder) {
  RepairPc on;
  const std::string link = on.pc.folder() + "\\Menu\\Gone.lnk";
  on.pc.MakeFile(link, "a link");
  SetFileAttributesA(link.c_str(), FILE_ATTRIBUTE_READONLY);
  on.pc.MakeFile(on.pc.program_folder() + "\\backup\\Gone.lnk", "one of the same name");
  on.AddFinding({"SHORTCUTS", link, "Gone", "C:\\gone.exe", ""});
  cmdFix_Click(on.window);
  EXPECT_EQ(GetFileAttributesA(link.c_str()), DWORD{INVALID_FILE_ATTRIBUTES});
  EXPECT_EQ(on.pc.ReadFile(on.pc.program_folder() + "\\backup\\Gone.lnk"), "a link");
}

TEST(Repair, CancelLeavesTheRegistryAlone) {
  RepairPc on;
  on.pc.SetText(HKEY_CURRENT_USER, "Made", "a", "data");
  on.AddFinding({"STARTUP", "HKEY_CURRENT_USER\\Made", "a", "data"});
  on.window.cmdCancel.Click();
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, "Made", "a"), "data");
  EXPECT_EQ(on.window.lvInvalidLoc.Count(), 0);
  EXPECT_TRUE(on.window.picWelcome.Visible());
  EXPECT_EQ(on.UndoText(), "");
}

}  // namespace
}  // namespace tidemark
