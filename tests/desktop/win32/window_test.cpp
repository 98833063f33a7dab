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

TEST(MainWindow, IsWorkedByKeysAlone) {
  DesktopPc on;
  PlantProblems(on.pc);
  const std::string junk = on.pc.folder() + "\\keys.tmp";
  on.pc.MakeFile(junk);
  frmMain& window = on.window;
  const auto has_focus_and_row = [&](ListView& list) {
    if (!on.TabbedTo(list)) return false;
    if (list.SelectedItem() == nullptr) on.Type(list.check_boxes ? VK_DOWN : VK_SPACE);
    return list.SelectedItem() != nullptr;
  };
  const auto asks = [&](const CommandButton frmMessBox::*button) {
    return window.mess_box && on.IsShown((*window.mess_box).*button);
  };
  // A partial repair.
  on.When([&] { return on.RowsOf(window.lvProblems) == 3 && has_focus_and_row(window.lvProblems); },
          [&] { on.Type(VK_SPACE); });
  on.When([&] { return on.IsTicked(window.lvProblems, 1) != on.IsTicked(window.lvProblems, 2); },
          [&] { on.Alt('r'); });
  on.When([&] { return on.IsShown(window.picWelcome); },
          [&] {
            EXPECT_FALSE(on.pc.KeyExists(HKEY_LOCAL_MACHINE, kAppPaths + "gone.exe"));
            on.Alt('b');
          });
  // Its undo.
  on.When([&] { return has_focus_and_row(window.LvBackup); }, [&] { on.Alt('r'); });
  on.When([&] { return asks(&frmMessBox::cmdYes); }, [&] { on.TypeLetter('y'); });
  on.When([&] { return asks(&frmMessBox::cmdOK); }, [&] { on.Type(VK_RETURN); });
  on.When([&] { return !window.mess_box; },
          [&] {
            EXPECT_TRUE(on.pc.KeyExists(HKEY_LOCAL_MACHINE, kAppPaths + "gone.exe"));
            on.Alt('v');
          });
  // A start-up entry.
  on.When([&] { return on.IsShown(window.picOptions); }, [&] { on.Alt('p'); });
  on.When([&] { return has_focus_and_row(window.lvPrograms); }, [&] { on.Type(VK_SPACE); });
  on.When([&] { return window.lvPrograms.SelectedItem()->SubItem(4) == "Disabled"; },
          [&] { on.Alt('h'); });
  // Junk: one file.
  on.When([&] { return on.IsShown(window.cmdCleanJunk); }, [&] { on.Alt('j'); });
  on.When([&] { return on.TabbedTo(window.tvDrives); }, [&] { on.Type(VK_HOME); });
  on.When([] { return true; }, [&] { on.Type(VK_SPACE); });
  on.When([&] { return window.tvDrives.Node(1)->Checked(); }, [&] { on.Alt('c'); });
  on.When([&] { return !window.JunkScanRunning && on.RowsOf(window.lvJunkFiles) > 0; },
          [&] { on.Alt('c'); });
  on.When([&] { return has_focus_and_row(window.lvJunkFiles); },
          [&] {
            int row = 1;
            while (window.lvJunkFiles.Item(row)->Caption() != junk) ++row;
            int way = row - window.lvJunkFiles.IndexOf(window.lvJunkFiles.SelectedItem());
            for (; way > 0; --way) on.Type(VK_DOWN);
            for (; way < 0; ++way) on.Type(VK_UP);
          });
  on.When([&] { return window.lvJunkFiles.SelectedItem()->Caption() == junk; },
          [&] { on.Type(VK_SPACE); });
  on.When([&] { return window.lvJunkFiles.SelectedItem()->Checked(); }, [&] { on.Alt('r'); });
  on.When([&] { return !on.pc.FileExists(junk); }, [&] { on.CloseWindow(); });
  on.Run([&] { cmdScanNow_Click(window); });
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
