#include "shell/scheduler.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/locale_texts.h"
#include "shell/pages.h"
#include "tests/support/settings.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

struct Moment {
  WORD day, hour, minute;
  WORD second = 0;

  SYSTEMTIME InNovember() const { return {2006, 11, 0, day, hour, minute, second, 0}; }
};

struct SchedulerPc : WindowPc {
  SchedulerPc() { window.SetInitValues(); }

  // Every run is stopped as soon as it has begun.
  bool RunsAtTick() {
    bool ran = false;
    front_end.When([this] { return window.AutoRunActive; },
                   [this, &ran] {
                     ran = true;
                     window.StopRequested = true;
                   });
    window.TmrScheduler.Tick();
    if (!ran) front_end = {};
    return ran;
  }
  void StoreLastRun(const SYSTEMTIME& time) {
    Store("LastRunDate", DateText(time));
    Store("LastRunTime", TimeText(time));
  }
};

TEST(Scheduler, TheTimerRunsOnlyForANumberThatIsOne) {
  SchedulerPc on;
  EXPECT_FALSE(on.window.TmrScheduler.Enabled());
  EXPECT_EQ(on.window.TmrScheduler.Interval(), 60000);
  Scheduler(on.window);
  EXPECT_FALSE(on.window.TmrScheduler.Enabled());
  for (const auto& [text, enabled] : {std::pair{"1", true},
                                      {"0", false},
                                      {" 1.0 ", true},
                                      {"2", false},
                                      {"-1", false},
                                      {"1x", true},
                                      {"yes", false},
                                      {"", false},
                                      {"1.2", false}}) {
    Store("Scheduler", text);
    Scheduler(on.window);
    EXPECT_EQ(on.window.TmrScheduler.Enabled(), enabled) << text;
  }
}

TEST(Scheduler, TheOptionsTellWhenTheNextRunIsDue) {
  SchedulerPc on;
  if (!on.pc.CanFault()) GTEST_SKIP() << "the clock can't be set on this ground";
  on.pc.SetLocale("M/d/yyyy", "h:mm:ss tt");
  on.StoreLastRun(Moment{14, 13, 5}.InNovember());
  on.pc.SetTime(Moment{14, 13, 17}.InNovember());
  on.window.SetInitValues();
  EXPECT_EQ(NextRun(on.window), "") << "no schedule is stored";
  Store("Scheduler", "1");
  for (const auto& [type, next] : {std::pair{"0", "Tuesday, November 14 2006 - 1:35:00 PM"},
                                   {"1", "Tuesday, November 14 2006 - 2:00:00 PM"},
                                   {"2", "Wednesday, November 15 2006 - 1:00:00 PM"},
                                   {"3", "Tuesday, November 21 2006 - 1:00:00 PM"},
                                   {"7", "after the next scan"}}) {
    Store("SchedulerType", type);
    EXPECT_EQ(NextRun(on.window), next);
  }
  Store("SchedulerType", "0");
  on.pc.SetTime(Moment{14, 13, 40}.InNovember());
  lblOptions_Click(on.window, 0);
  EXPECT_EQ(on.window.lblNextRun.Caption(), "Next run : within a minute");
}

TEST(Scheduler, ARunComesDueAtItsBoundaryAndNotBefore) {
  struct Case {
    const char* type;
    Moment last, now;
    bool due;
  };
  const std::vector<Case> cases = {
      {"0", {14, 0, 10}, {14, 0, 39, 59}, false},  {"0", {14, 0, 10, 59}, {14, 0, 40}, true},
      {"0", {14, 23, 50}, {15, 0, 30}, false},  // times of day alone
      {"0", {14, 23, 20}, {16, 23, 50}, true},     {"1", {14, 10, 0}, {14, 10, 59, 59}, false},
      {"1", {14, 10, 59, 59}, {14, 11, 0}, true},  {"1", {14, 23, 0}, {15, 22, 59}, false},
      {"2", {14, 13, 5}, {15, 12, 59, 59}, false}, {"2", {14, 13, 59}, {15, 13, 0}, true},
      {"2", {15, 13, 0}, {14, 13, 0}, false},  // the clock was put back
      {"3", {14, 13, 5}, {21, 12, 59, 59}, false}, {"3", {14, 13, 5}, {21, 13, 0}, true},
      {"4", {14, 13, 5}, {28, 23, 59}, false},     {"-1", {14, 13, 5}, {28, 23, 59}, false},
      {"x", {14, 13, 5}, {14, 13, 35}, true},  // no number, so 0
      {"0.9", {14, 13, 5}, {14, 13, 35}, true},    {"2.9", {14, 13, 5}, {15, 13, 5}, true},
      {"99999", {14, 13, 5}, {28, 23, 59}, false}, {"-0.5", {14, 13, 5}, {28, 23, 59}, false},
  };
  SchedulerPc on;
  if (!on.pc.CanFault()) GTEST_SKIP() << "the clock can't be set on this ground";
  for (const auto& [date, time] : {std::pair{"M/d/yyyy", "h:mm:ss tt"},
                                   {"dd/MM/yyyy", "HH:mm:ss"},
                                   {"d.M.yyyy", "H.mm.ss"},
                                   {"dd.MM.yy", "HH.mm.ss"},
                                   {"d. M. yyyy 'r.'", "tt h'h'mm'm'ss"},
                                   {"d-MMM-yy", "H.mm.ss"},
                                   {"dd/MM/yy", "H.mm.ss"}}) {
    on.pc.SetLocale(date, time);
    for (const Case& one : cases) {
      on.StoreLastRun(one.last.InNovember());
      Store("SchedulerType", one.type);
      on.pc.SetTime(one.now.InNovember());
      EXPECT_EQ(on.RunsAtTick(), one.due)
          << date << " type " << one.type << ' ' << one.last.day << ". " << one.last.hour << ':'
          << one.last.minute << " to " << one.now.day << ". " << one.now.hour << ':'
          << one.now.minute;
    }
  }
}

// Day and month of either moment are taken the other way round where that gives a date.
TEST(Scheduler, WhereTheMonthComesFirstEarlyDaysOfAMonthAreMisread) {
  struct Case {
    const char* date;
    Moment last, now;
    bool due;
  };
  SchedulerPc on;
  if (!on.pc.CanFault()) GTEST_SKIP() << "the clock can't be set on this ground";
  for (const Case& one :
       {Case{"M/d/yyyy", {4, 13, 5}, {5, 0, 5}, true},  // 11 April to 11 May
        {"M/d/yyyy", {12, 13, 5}, {22, 13, 5}, false},  // 11 December to 22 November
        {"dd/MM/yyyy", {4, 13, 5}, {11, 12, 5}, false},
        {"dd/MM/yyyy", {4, 13, 5}, {11, 13, 5}, true},
        {"yyyy-MM-dd", {4, 13, 5}, {5, 0, 5}, true},  // 6 November 2004 to 2005
        {"yyyy-MM-dd", {4, 0, 5}, {4, 23, 5}, false}}) {
    on.pc.SetLocale(one.date, "HH:mm:ss");
    on.StoreLastRun(one.last.InNovember());
    Store("SchedulerType", "3");
    on.pc.SetTime(one.now.InNovember());
    EXPECT_EQ(on.RunsAtTick(), one.due) << one.date << ' ' << one.last.day << " to " << one.now.day;
  }
}

TEST(Scheduler, WhatCannotBeReadIsDueAndWhatIsMissingIsNot) {
  for (const char* type : {"0", "1", "2", "3", "7"}) {
    SchedulerPc on;
    SYSTEMTIME now{};
    GetLocalTime(&now);
    Store("SchedulerType", type);
    EXPECT_FALSE(on.RunsAtTick()) << "nothing stored, type " << type;
    for (const auto& [date, time] : {std::pair{DateText(now), std::string("never")},
                                     {DateText(now), std::string()},
                                     {std::string("no date"), TimeText(now)},
                                     {std::string("\xFF\x80"), std::string("\x01")}}) {
      Store("LastRunDate", date);
      Store("LastRunTime", time);
      EXPECT_TRUE(on.RunsAtTick()) << date << ' ' << time << " type " << type;
    }
    EXPECT_FALSE(on.RunsAtTick()) << "the run has stored new ones, type " << type;
  }
}

TEST(Scheduler, AnOwnRunCountsWhereItsTextsCannotBeReadBack) {
  SchedulerPc on;
  if (!on.pc.CanFault()) GTEST_SKIP() << "the clock can't be set on this ground";
  on.pc.SetLocale("'on' dddd", "'at' ss");
  struct Case {
    const char* type;
    Moment now;  // the run is on the 4th at 13:05:09
    bool due;
  };
  for (const Case& one : {Case{"0", {4, 13, 34}, false},
                          {"0", {4, 13, 35}, true},
                          {"1", {5, 12, 59}, false},
                          {"1", {4, 14, 0}, true},
                          {"2", {5, 12, 59}, false},
                          {"2", {5, 13, 0}, true},
                          {"3", {11, 12, 59}, false},
                          {"3", {11, 13, 0}, true}}) {
    on.pc.SetTime({2006, 11, 6, 4, 13, 5, 9, 0});
    Store("SchedulerType", one.type);
    Store("LastRunTime", "of another process");
    EXPECT_TRUE(on.RunsAtTick()) << one.type;
    EXPECT_EQ(Stored("LastRunDate") + ' ' + Stored("LastRunTime"), "on Saturday at 09");
    on.pc.SetTime(one.now.InNovember());
    EXPECT_EQ(on.RunsAtTick(), one.due) << one.type << ' ' << one.now.day << ". " << one.now.hour;
  }
}

TEST(Scheduler, ARunScansRepairsAndComesHomeWithNoQuestion) {
  SchedulerPc on;
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "Gone", "C:\\no such folder\\gone.exe");
  Store("Startup", "0");
  Store("Scheduler", "1");
  Store("LastRunTime", "never");
  on.window.SetInitValues();
  on.window.form.SetState(WindowState::kMinimized);
  std::string seen;
  on.front_end.When([&] { return on.window.ScanRunning; },
                    [&] {
                      seen += on.window.AutoRunActive ? "active " : "";
                      seen += on.window.TmrScheduler.Enabled() ? "" : "disabled";
                    });
  on.window.TmrScheduler.Tick();
  EXPECT_EQ(seen, "active disabled");
  EXPECT_FALSE(on.pc.Value(HKEY_CURRENT_USER, kRun, "Gone"));
  EXPECT_NE(on.UndoText().find("\"Gone\"="), std::string::npos);
  EXPECT_EQ(on.front_end.messages(), std::vector<std::string>{});
  EXPECT_TRUE(on.window.picWelcome.Visible());
  EXPECT_FALSE(on.window.cmdFinish.Visible());
  EXPECT_EQ(on.window.form.State(), WindowState::kMinimized);
  EXPECT_TRUE(on.window.TmrScheduler.Enabled());
  EXPECT_FALSE(on.window.AutoRunActive);
  SYSTEMTIME now{};
  EXPECT_TRUE(ParseDate(Stored("LastRunTime")));
  GetLocalTime(&now);
  EXPECT_EQ(Stored("LastRunDate"), DateText(now));
}

TEST(Scheduler, ADueTickEntersARunningScan) {
  SchedulerPc on;
  on.pc.SetText(HKEY_CURRENT_USER, kRun, "Gone", "C:\\no such folder\\gone.exe");
  on.window.SetInitValues();
  Store("LastRunTime", "never");
  bool inner_ended = false;
  on.front_end.When([&] { return on.window.lvInvalidLoc.Count() > 0; },
                    [&] {
                      on.window.TmrScheduler.SetEnabled(true);  // as a visit to Home does
                      on.window.TmrScheduler.Tick();
                      inner_ended = on.window.picWelcome.Visible() && !on.window.ScanRunning &&
                                    !on.pc.Value(HKEY_CURRENT_USER, kRun, "Gone");
                      on.pc.SetText(HKEY_CURRENT_USER, kRun, "Gone", "C:\\Windows\\win.ini");
                    });
  on.window.TmrScheduler.Tick();
  EXPECT_TRUE(inner_ended) << "the younger run came to its end on top of the scan";
  EXPECT_TRUE(on.window.picWelcome.Visible()) << "the older scan ended there";
  EXPECT_EQ(Stored("TotalCount"), Stored("LastCount"));
  EXPECT_TRUE(on.pc.Value(HKEY_CURRENT_USER, kRun, "Gone")) << "the older run repaired nothing";
  EXPECT_TRUE(on.window.TmrScheduler.Enabled());
}

}  // namespace
}  // namespace tidemark
