// The tab of options in the real window.
#include <gtest/gtest.h>

#include <string>

#include "shell/pages.h"
#include "tests/desktop/win32/desktop_pc.h"
#include "tests/support/settings.h"

namespace tidemark {
namespace {

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

}  // namespace
}  // namespace tidemark
