#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "scan/locations.h"
#include "scan/scan.h"
#include "tests/support/settings.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

using Rows = std::vector<std::string>;

std::string Icons(const ListView& list) {
  std::string icons;
  for (int row = 1; row <= list.Count(); ++row)
    icons += std::to_string(list.Item(row)->SmallIcon());
  return icons;
}

// A PC with one problem in Interfaces, two in Startup, one in Help.
struct ScanPc : WindowPc {
  ScanPc() {
    const std::string gone = pc.folder() + "\\gone.exe";
    pc.SetText(HKEY_CLASSES_ROOT, "interface\\{1}\\TypeLib", "", "");
    pc.SetText(HKEY_CURRENT_USER, kRun, "a", gone);
    pc.SetText(HKEY_LOCAL_MACHINE, kRun, "b", gone);
    pc.SetText(HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Windows\\HTML Help", "c", gone);
    pc.SetText(HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Windows\\Help", "office", gone);
  }
  void Choose(const char* state) {
    Store("LocState", state);
    LoadLocations(window);
  }
};

TEST(Scan, ShowsFindingsByTestAndSeverityAndStoresItsStatistics) {
  ScanPc on;
  on.Choose("1;1;1;1;1;1;1;1;1;1;1;1");
  cmdScan_Click(on.window);
  EXPECT_EQ(WindowPc::Rows(on.window.lvFound, {0, 1, 2}),
            (Rows{"Interfaces|1|Severe", "Startup|2|Elevated", "Help Files|1|Low"}));
  EXPECT_EQ(on.window.SeverityCounts, (std::array<std::int32_t, 5>{1, 0, 2, 0, 1}));
  EXPECT_EQ(Icons(on.window.lvFound), "135");
  EXPECT_EQ(Icons(on.window.lvScan), std::string(12, '2'));
  EXPECT_EQ(on.window.lvScan.Item("SHORTCUTS")->SubItem(1), "Finished");
  EXPECT_EQ(on.window.lblFound.Caption(), "Problems Found : 4");
  EXPECT_EQ(on.window.lvProblems.Count(), 1) << "the first test's findings are shown";
  EXPECT_TRUE(on.window.picClear.Visible());
  EXPECT_FALSE(on.window.picScan.Visible() || on.window.ScanRunning);
  EXPECT_EQ(Stored("LastCount"), "4");
  EXPECT_EQ(Stored("OutstandingErrors"), "4");
  on.front_end.When([&on] { return on.window.ScanRunning; },
                    [&on] { on.window.lvFound.Add("STARTUP", "held already"); });
  cmdScan_Click(on.window);
  EXPECT_EQ(on.window.SeverityCounts[2], 2);
  EXPECT_EQ(Stored("TotalCount"), "8");
  EXPECT_EQ(on.window.lvInvalidLoc.Count(), 4) << "the lists were cleared";
}

TEST(Scan, WithNothingCheckedStillFinishesWithTheOldCount) {
  ScanPc on;
  on.Choose("0;0;0;0;0;0;0;0;0;0;0;0");
  on.window.ProblemCount = 7;
  Store("TotalCount", "10 or so");
  cmdScan_Click(on.window);
  EXPECT_EQ(on.front_end.messages(),
            (Rows{"Tidemark: No diagnostic test,  please select test to scan"}));
  EXPECT_EQ(Stored("TotalCount"), "17");
  EXPECT_TRUE(on.window.picClear.Visible());
  for (const char* told : {"LastRunDate", "LastRunTime"}) EXPECT_NE(Stored(told), "none");
}

TEST(Scan, AStopKeepsWhatWasFoundAndLeavesTheRestPending) {
  ScanPc on;
  on.Choose("0;1;0;0;0;0;0;1;1;1;1;0");
  on.front_end.When([&on] { return on.window.lvInvalidLoc.Count() == 2; },
                    [&on] {
                      EXPECT_TRUE(on.window.cmdStop.Visible() && !on.window.cmdScan.Visible());
                      EXPECT_EQ(on.window.lvScan.Container()->Controls().back(), &on.window.lvScan);
                      on.window.cmdStop.Click();
                    });
  cmdScan_Click(on.window);
  EXPECT_TRUE(on.window.cmdScan.Visible() && !on.window.cmdStop.Visible());
  EXPECT_EQ(WindowPc::Rows(on.window.lvScan, {0, 1, 2}),
            (Rows{"Interfaces|Finished|1", "Startup|Aborted|1", "Application Paths|Pending|",
                  "Software Removal|Pending|", "Help Files|Pending|"}));
  EXPECT_EQ(WindowPc::Rows(on.window.lvFound, {0, 1}), (Rows{"Interfaces|1", "Startup|1"}));
  EXPECT_EQ(Stored("LastCount"), "2");
}

TEST(Scan, LivesThroughWhateverAPersonDoesMeanwhile) {
  const char* const all = "1;1;1;1;1;1;1;1;1;1;1;1";
  for (const long yield : {1, 7, 13, 24, 26, 40, 60}) {
    ScanPc on;
    on.Choose(all);
    on.front_end.AtYield(yield, [&on] { on.window.cmdMenuHome.Click(); });
    cmdScan_Click(on.window);
    EXPECT_EQ(on.window.lvScan.Count(), 12) << yield;
  }
}

// The schedule asks no button.
TEST(Scan, AYoungerScanEndsTheOlderOneWhichAddsNothingMore) {
  for (const long yield : {1, 6, 11, 13, 18, 23, 27, 31, 35, 39, 43, 47, 51, 54, 57}) {
    ScanPc on;
    on.Choose("0;1;0;0;0;0;0;1;1;1;1;1");
    on.front_end.AtYield(yield, [&on] {
      for (const CommandButton* start :
           {&on.window.cmdScanNow, &on.window.cmdScan, &on.window.cmdFix, &on.window.cmdJunkScan}) {
        EXPECT_FALSE(start->Enabled()) << start->Name();
      }
      on.Choose("0;0;0;0;0;0;0;1;0;0;1;0");
      cmdScan_Click(on.window);
    });
    cmdScan_Click(on.window);
    ASSERT_GE(on.front_end.yields(), yield) << "the older scan ran that long";
    EXPECT_EQ(WindowPc::Rows(on.window.lvScan, {0, 1, 2}),
              (Rows{"Startup|Finished|2", "Help Files|Finished|1"}))
        << yield;
    EXPECT_EQ(on.NamesAndReasons(), (Rows{"a|Invalid path", "b|Invalid path", "c|Invalid path"}))
        << yield;
    EXPECT_EQ(WindowPc::Rows(on.window.lvFound, {0}), (Rows{"Startup", "Help Files"})) << yield;
    EXPECT_EQ(Stored("TotalCount") + Stored("LastCount"), "33") << yield;
    EXPECT_TRUE(on.window.cmdScan.Enabled() && !on.window.ScanRunning) << yield;
  }
}

TEST(Scan, ATickReachesTheRecordAndComesBack) {
  ScanPc on;
  on.Choose("1;1;1;1;1;1;1;1;1;1;1;1");
  cmdScan_Click(on.window);
  on.window.lvFound.UserSelect(*on.window.lvFound.Item("STARTUP"));
  ASSERT_EQ(on.window.lvProblems.Count(), 2);
  on.window.lvProblems.UserCheck(*on.window.lvProblems.Item(2), false);
  on.window.lvFound.UserSelect(*on.window.lvFound.Item("HELP"));
  on.window.lvFound.UserSelect(*on.window.lvFound.Item("STARTUP"));
  EXPECT_EQ(WindowPc::Rows(on.window.lvProblems, {1, 5, 6}), (Rows{"a||1", "b||0"}));
  EXPECT_FALSE(on.window.lvProblems.Item(2)->Checked());
  on.window.lvProblems.UserSelect(*on.window.lvProblems.Item(2));
  EXPECT_EQ(on.window.lvProblems.ToolTipText(), on.pc.folder() + "\\gone.exe");
}

TEST(Locations, ABadStoredChoiceChecksEverything) {
  for (const auto& [stored, expected] : {std::pair{"", 12},
                                         {"1;0", 12},
                                         {"0;0;0;0;0;0;0;0;0;0;0;0;0", 12},
                                         {"01; 1;1.0;x;;2;0;0;0;0;0;0", 3},
                                         {"0;0;0;0;0;0;0;0;0;0;0;0", 0}}) {
    WindowPc on;
    Store("LocState", stored);
    LoadLocations(on.window);
    int checked = 0;
    for (int index = 1; index <= on.window.lvLocations.Count(); ++index) {
      checked += on.window.lvLocations.Item(index)->Checked() ? 1 : 0;
    }
    EXPECT_EQ(checked, expected) << stored;
  }
}

TEST(Locations, EveryTickIsSavedAtOnce) {
  WindowPc on;
  LoadLocations(on.window);
  on.window.lvLocations.UserCheck(*on.window.lvLocations.Item("LIB"), false);
  EXPECT_EQ(Stored("LocState"), "1;1;0;1;1;1;1;1;1;1;1;1");
  on.window.chkSelectAll.SetValue(1);
  for (const auto& [all, state] :
       {std::pair{"0", "0;0;0;0;0;0;0;0;0;0;0;0"}, {"1", "1;1;1;1;1;1;1;1;1;1;1;1"}}) {
    on.window.chkSelectAll.Click();
    EXPECT_EQ(Stored("LocState"), state);
    EXPECT_EQ(Stored("SelectAllLoc"), all);
  }
}

TEST(Findings, TheMasterListSortsInTurnsAndNamesItsKeyInKeystrokes) {
  WindowPc on;
  // The root is no part of what is held against the list, the backslash behind it is.
  on.window.IgnoreList.slots = {"hkey_", "\\x c", ""};
  for (const char* name : {"b", "c", "a"}) {
    AddtoList(on.window, HKEY_CURRENT_USER, "X", name, "", REG_SZ, "reason");
  }
  on.window.lvInvalidLoc.UserColumnClick(2);
  EXPECT_EQ(on.NamesAndReasons(), (Rows{"a|reason", "b|reason"}));
  on.window.lvInvalidLoc.UserColumnClick(2);
  EXPECT_EQ(on.NamesAndReasons(), (Rows{"b|reason", "a|reason"}));
  EXPECT_EQ(KeystrokesToKey("HKEY_CLASSES_ROOT\\CLSID\\{A}"),
            "HKEY_CLASSES_ROOT{RIGHT}CLSID{RIGHT}{{}A{}}");
}

}  // namespace
}  // namespace tidemark
