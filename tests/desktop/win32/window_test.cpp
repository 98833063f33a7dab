#include <gtest/gtest.h>

#include <string>

#include "shell/pages.h"
#include "tests/desktop/win32/desktop_pc.h"
#include "tests/support/settings.h"

namespace tidemark {
namespace {

const std::string kAppPaths = "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";

// Bad start-up entries, and an application path that is gone.
void PlantProblems(TestPc& pc) {
  for (const char* name : {"one", "two", "three"}) {
    pc.SetText(HKEY_CURRENT_USER, kRun, name, "C:\\gone\\" + std::string(name) + ".exe");
  }
  pc.SetText(HKEY_LOCAL_MACHINE, kAppPaths + "gone.exe", "", "C:\\gone\\gone.exe");
}

// Keys enough for a scan that can be met in the middle.
void PlantManyKeys(TestPc& pc) {
  for (int key = 0; key < 3000; ++key) {
    pc.SetText(HKEY_LOCAL_MACHINE, kAppPaths + "a" + std::to_string(key), "", "C:\\gone\\a.exe");
  }
}

TEST(MainWindow, FromStartOverResultsAndRepairToHome) {
  DesktopPc on;
  PlantProblems(on.pc);
  const frmMain& window = on.window;
  on.When([&] { return on.IsShown(window.picClear) && on.RowsOf(window.lvFound) == 2; },
          [&] {
            EXPECT_EQ(on.TextOf(window.form), "Tidemark! - Keep Your PC In Trim!");
            EXPECT_EQ(on.TextOf(window.lblFound), "Problems Found : 4");
            EXPECT_EQ(on.CellOf(window.lvFound, 1, 1), "Startup");
            EXPECT_EQ(on.CellOf(window.lvFound, 1, 3), "Elevated");
            EXPECT_EQ(on.CellOf(window.lvProblems, 2, 2), "three") << "values come sorted here";
            EXPECT_TRUE(on.IsTicked(window.lvProblems, 2));
            on.PressTick(window.lvProblems, 2);
          });
  on.When([&] { return !on.IsTicked(window.lvProblems, 2); },
          [&] { on.PressRow(window.lvFound, 2); });
  on.When([&] { return on.RowsOf(window.lvProblems) == 1; },
          [&] {
            EXPECT_EQ(on.CellOf(window.lvProblems, 1, 4), "Invalid path");
            on.PressRow(window.lvFound, 1);
          });
  on.When([&] { return on.RowsOf(window.lvProblems) == 3; },
          [&] {
            EXPECT_FALSE(on.IsTicked(window.lvProblems, 2)) << "the tick came back";
            on.Press(window.cmdFix);
          });
  on.When([&] { return on.IsShown(window.picWelcome); }, [&] { on.CloseWindow(); });
  on.Run([&] { cmdScanNow_Click(on.window); });
  EXPECT_TRUE(on.pc.Value(HKEY_CURRENT_USER, kRun, "three")) << "it was not ticked";
  EXPECT_FALSE(on.pc.Value(HKEY_CURRENT_USER, kRun, "one"));
  EXPECT_FALSE(on.pc.KeyExists(HKEY_LOCAL_MACHINE, kAppPaths + "gone.exe"));
}

TEST(MainWindow, StopIsAnsweredInTheMiddleAndWhatWasFoundIsShown) {
  DesktopPc on;
  PlantManyKeys(on.pc);
  const frmMain& window = on.window;
  on.When([&] { return window.ScanRunning && window.ProblemCount > 20; },
          [&] { on.Press(window.cmdStop); });
  on.When([&] { return on.IsShown(window.picClear); },
          [&] {
            EXPECT_LT(window.ProblemCount, 3000);
            EXPECT_EQ(on.RowsOf(window.lvProblems), window.ProblemCount);
            on.CloseWindow();
          });
  on.Run([&] { cmdScanNow_Click(on.window); });
}

TEST(MainWindow, OptionsAreApplied) {
  DesktopPc on;
  frmMain& window = on.window;
  const auto enabled = [&](const Control& control) {
    return IsWindowEnabled(on.Window(control)) != FALSE;
  };
  const auto checked = [&](const Control& control) {
    return SendMessageA(on.Window(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
  };
  on.When([&] { return on.IsShown(window.chkScheduler); },
          [&] {
            EXPECT_TRUE(checked(window.chkStartup));
            EXPECT_TRUE(checked(window.optSchedule(3)));
            EXPECT_FALSE(enabled(window.optSchedule(0)) || enabled(window.cmdOptApply));
            on.Press(window.chkScheduler);
          });
  on.When([&] { return enabled(window.optSchedule(0)) && enabled(window.cmdOptApply); },
          [&] { on.Press(window.optSchedule(0)); });
  on.When([&] { return checked(window.optSchedule(0)) && !checked(window.optSchedule(3)); },
          [&] {
            EXPECT_EQ(Stored("Scheduler"), "none");
            on.Press(window.cmdOptApply);
          });
  on.When([&] { return !enabled(window.cmdOptApply) && !enabled(window.cmdOptCancel); },
          [&] {
            EXPECT_EQ(Stored("Scheduler") + Stored("SchedulerType"), "10");
            EXPECT_TRUE(window.TmrScheduler.Enabled());
            on.CloseWindow();
          });
  on.Run([&] { cmdMenuAdvanced_Click(window); });
}

}  // namespace
}  // namespace tidemark
