// The tabs of options and backups in the real window.
#include <gtest/gtest.h>

#include <string>

#include "helpers/settings_key.h"
#include "platform/locale_texts.h"
#include "registry/mdlRegistry.h"
#include "shell/pages.h"
#include "tests/desktop/win32/desktop_pc.h"
// It wants the platform's headers before it.
#include <commctrl.h>

namespace tidemark {
namespace {

std::string Stored(const char* name) {
  return GetRegString(HKEY_CURRENT_USER, kSettingsKey, name, "none");
}

TEST(Tabs, OptionsAreAppliedAndCancelled) {
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
            on.Press(window.chkSystray);
          });
  on.When([&] { return checked(window.chkSystray) && enabled(window.cmdOptCancel); },
          [&] { on.Press(window.cmdOptCancel); });
  on.When([&] { return !checked(window.chkSystray) && !enabled(window.cmdOptCancel); },
          [&] {
            EXPECT_EQ(Stored("ShowinSystray"), "0");
            on.CloseWindow();
          });
  on.Run([&] { cmdMenuAdvanced_Click(window); });
}

TEST(Tabs, ABackupIsListedWithItsDateAndRemovedWhenTheQuestionSaysYes) {
  DesktopPc on;
  frmMain& window = on.window;
  const std::string file = on.pc.program_folder() + "\\backup\\undo_060411_130509.reg";
  on.pc.MakeFile(file);
  const auto question_is_up = [&] {
    return window.mess_box && on.IsShown(window.mess_box->cmdYes);
  };
  on.When([&] { return on.IsShown(window.LvBackup) && on.RowsOf(window.LvBackup) == 1; },
          [&] {
            EXPECT_EQ(on.CellOf(window.LvBackup, 1, 1), "undo_060411_130509.reg");
            EXPECT_TRUE(ParseDate(on.CellOf(window.LvBackup, 1, 2)));
            LVITEMA row{};
            row.mask = LVIF_IMAGE;
            SendMessageA(on.Window(window.LvBackup), LVM_GETITEMA, 0,
                         reinterpret_cast<LPARAM>(&row));
            EXPECT_EQ(row.iImage, 2) << "the third icon";
            on.PressRow(window.LvBackup, 1);
          });
  on.When([&] { return window.LvBackup.SelectedItem() != nullptr; },
          [&] { on.Press(window.cmdRemove); });
  on.When(question_is_up, [&] {
    EXPECT_EQ(on.TextOf(window.mess_box->form), "Tidemark - Delete Backup File?");
    EXPECT_FALSE(on.IsShown(window.mess_box->cmdOK));
    const HWND box = on.Window(window.mess_box->form);
    EXPECT_NE(GetWindowLongA(box, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_NE(IsWindowEnabled(on.Window(window.form)), FALSE) << "it is not modal";
    on.Press(window.mess_box->cmdNo);
  });
  on.When([&] { return !window.mess_box; },
          [&] {
            EXPECT_TRUE(on.pc.FileExists(file));
            on.Press(window.cmdRemove);
          });
  on.When(question_is_up, [&] { on.Press(window.mess_box->cmdYes); });
  on.When([&] { return on.RowsOf(window.LvBackup) == 0; },
          [&] {
            EXPECT_FALSE(on.pc.FileExists(file));
            on.CloseWindow();
          });
  on.Run([&] { cmdMenuBackups_Click(window); });
}

}  // namespace
}  // namespace tidemark
