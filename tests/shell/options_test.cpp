#include "shell/options.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/settings.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

constexpr const char* kEntry = "Tidemark - 2.1";

// "boxes schedule": the values of the three check boxes and the chosen schedules' numbers.
std::string Shown(frmMain& window) {
  std::string shown;
  for (const CheckBox* box : {&window.chkStartup, &window.chkSystray, &window.chkScheduler}) {
    shown += std::to_string(box->Value()) + ' ';
  }
  for (int index = 0; index < window.optSchedule.Count(); ++index) {
    if (window.optSchedule(index).Value()) shown += std::to_string(index);
  }
  return shown;
}

// The enabled ones of the four schedules, "a" for Apply, "c" for Cancel.
std::string Enabled(frmMain& window) {
  std::string enabled;
  for (int index = 0; index < window.optSchedule.Count(); ++index) {
    if (window.optSchedule(index).Enabled()) enabled += std::to_string(index);
  }
  if (window.cmdOptApply.Enabled()) enabled += 'a';
  if (window.cmdOptCancel.Enabled()) enabled += 'c';
  return enabled;
}

TEST(Options, WithNothingStoredTheProgramStartsWithWindows) {
  WindowPc on;
  LoadOptions(on.window);
  EXPECT_EQ(Shown(on.window), "1 0 0 3");
  EXPECT_EQ(Enabled(on.window), "");
  EXPECT_EQ(on.pc.Text(HKEY_CURRENT_USER, kRun, kEntry),
            on.pc.program_folder() + "\\tidemark.exe /m");
}

TEST(Options, ARenamedProgramIsStartedByItsName) {
  WindowPc on;
  for (const auto& [file, command] :
       {std::pair{"C:\\Tools\\My tidemark.v2.EXE", "C:\\Tools\\My tidemark.v2.exe /m"},
        {"C:\\To.ols\\tm", "C:\\To.ols\\tm.exe /m"},
        {"D:\\tm.exe", "D:\\tm.exe /m"}}) {
    on.window.application = ApplicationOf(file);
    SetStartupEntry(on.window, true);
    EXPECT_EQ(on.pc.Text(HKEY_CURRENT_USER, kRun, kEntry), command);
  }
}

TEST(Options, AnAdministratorsTaskFollowsTheOption) {
  WindowPc on;
  if (!on.pc.CanFault()) GTEST_SKIP() << "the tasks would be real ones on this ground";
  const Label& notice = on.window.lblStartupNotice;
  const auto shown = [&] { return notice.Visible() ? notice.Caption().String() : "nothing"; };
  LoadOptions(on.window);
  EXPECT_EQ(on.pc.RegisteredLogonTask(), "") << "the process is not elevated";

  on.window.application.elevated = true;
  on.window.LogonTaskTried = false;
  on.pc.RefuseLogonTasks(-0x7FFBECEB);
  LoadOptions(on.window);
  EXPECT_EQ(shown(),
            "Windows may not start Tidemark: the Task Scheduler took no logon task (0x80041315).");
  on.pc.RefuseLogonTasks(S_OK);
  LoadOptions(on.window);
  EXPECT_EQ(on.pc.RegisteredLogonTask(), "") << "once is enough";
  cmdOptApply_Click(on.window);
  EXPECT_EQ(on.pc.RegisteredLogonTask(), on.pc.program_folder() + "\\tidemark.exe|/m");
  EXPECT_EQ(shown(), "nothing");

  on.window.application.elevated = false;
  on.window.chkStartup.Click();
  on.pc.RefuseLogonTasks(-0x7FF8FFFB);
  cmdOptApply_Click(on.window);
  EXPECT_EQ(
      shown(),
      "Windows may still start Tidemark: the Task Scheduler kept its logon task (0x80070005).");
  on.pc.RefuseLogonTasks(S_OK);
  cmdOptApply_Click(on.window);
  EXPECT_EQ(on.pc.RegisteredLogonTask(), "");
}

TEST(Options, StoredTextsThatAreNoOptionDoAsLittleHarmAsTheyCan) {
  struct Case {
    const char *startup, *systray, *scheduler, *type;
    const char* shown;    // after "1 0 0 3" was
    const char* enabled;  // of the schedules
  };
  for (const Case& one : {Case{"0", "1", "1", "2", "0 1 1 2", "0123"},
                          {"x", "x", "x", "x", "0 0 0 0", ""},
                          {"", "", "", "", "0 0 0 0", ""},
                          {"1 or so", " 1", "1.4", "1.6", "1 1 1 2", "0123"},
                          {"5", "-1", "2", "2.5", "5 -1 2 2", ""},
                          {"99999", "40000", "1e99", "99999", "1 0 0 3", ""},
                          {"0", "0", "0", "-1", "0 0 0 3", ""}}) {
    WindowPc on;
    LoadOptions(on.window);
    Store("Startup", one.startup);
    Store("ShowinSystray", one.systray);
    Store("Scheduler", one.scheduler);
    Store("SchedulerType", one.type);
    LoadOptions(on.window);
    EXPECT_EQ(Shown(on.window), one.shown) << one.startup << ' ' << one.type;
    EXPECT_EQ(Enabled(on.window), one.enabled) << one.scheduler;
  }
}

TEST(Options, ChangesCountWhenTheyAreApplied) {
  WindowPc on;
  LoadOptions(on.window);
  on.window.chkScheduler.Click();
  EXPECT_EQ(Enabled(on.window), "0123ac");
  on.window.optSchedule(1).Click();
  on.window.chkSystray.Click();
  on.window.chkStartup.Click();
  EXPECT_EQ(Stored("Scheduler"), "none");
  EXPECT_FALSE(on.window.TmrScheduler.Enabled());
  on.window.cmdOptApply.Click();
  EXPECT_EQ(
      Stored("Startup") + Stored("ShowinSystray") + Stored("Scheduler") + Stored("SchedulerType"),
      "0111");
  EXPECT_FALSE(on.pc.Value(HKEY_CURRENT_USER, kRun, kEntry)) << "the entry goes";
  EXPECT_TRUE(on.window.TmrScheduler.Enabled()) << "the timer follows at once";
  EXPECT_EQ(Enabled(on.window), "0123");
}

TEST(Options, CancelBringsTheStoredOnesBack) {
  WindowPc on;
  LoadOptions(on.window);
  for (CheckBox* box : {&on.window.chkStartup, &on.window.chkSystray, &on.window.chkScheduler}) {
    box->Click();
    EXPECT_TRUE(Enabled(on.window).ends_with("ac")) << box->Name();
    on.window.cmdOptCancel.Click();
    EXPECT_EQ(Shown(on.window), "1 0 0 3");
    EXPECT_EQ(Enabled(on.window), "");
  }
  EXPECT_TRUE(on.pc.Value(HKEY_CURRENT_USER, kRun, kEntry));
}

}  // namespace
}  // namespace tidemark
