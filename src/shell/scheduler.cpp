#include "shell/scheduler.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

#include "helpers/date_difference.h"
#include "helpers/text_helpers.h"
#include "platform/locale_texts.h"
#include "platform/winapi.h"
#include "registry/stored_settings.h"
#include "repair/repair.h"
#include "scan/scan.h"
#include "shell/pages.h"
#include "window/last_run.h"

namespace tidemark {
namespace {

constexpr DWORD kPauseMs = 50;

// One entry for each button of optSchedule. Those without a date compare times of day alone, so
// that a run late in the evening is not due again before that hour of the next day. On purpose.
struct Schedule {
  DateUnit unit;
  bool with_date;
  std::int64_t least_difference;
};

constexpr std::array<Schedule, 4> kSchedules = {{
    {DateUnit::kMinutes, false, 30},
    {DateUnit::kHours, false, 1},
    {DateUnit::kHours, true, 24},
    {DateUnit::kHours, true, 168},
}};

SYSTEMTIME Now() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return now;
}

// What was read under the user's locale is written day first, and is read under the locale again:
// where the month comes first, day and month may change places. On purpose.
std::string DayFirst(const std::string& text) {
  const std::optional<SYSTEMTIME> time = ParseDate(text);
  return time ? FormatTime(*time, "dd/mm/yy hh:nn:ss") : text;
}

using OptionalTime = std::optional<SYSTEMTIME>;

// No value when one of the texts could not be read.
std::optional<std::int64_t> Difference(DateUnit unit, const OptionalTime& from,
                                       const OptionalTime& to) {
  if (!from || !to) return std::nullopt;
  return DateDiff(unit, *from, *to);
}

SYSTEMTIME TimeOfDay(SYSTEMTIME moment) {
  moment.wYear = 1899;
  moment.wMonth = 12;
  moment.wDay = 30;
  return moment;
}

// By the texts.
std::optional<std::int64_t> TextDifference(const frmMain& window, const SYSTEMTIME& now,
                                           const Schedule& schedule) {
  if (!schedule.with_date) {
    return Difference(schedule.unit, ParseTime(window.LastRunTime), ParseTime(TimeText(now)));
  }
  return Difference(schedule.unit,
                    ParseDate(DayFirst(window.LastRunDate + " " + window.LastRunTime)),
                    ParseDate(DayFirst(DateText(now) + " " + TimeText(now))));
}

// By the moments themselves, when the last run was this process's: some locales write what no
// reader understands, and each tick would be due.
std::optional<std::int64_t> OwnDifference(const frmMain& window, const SYSTEMTIME& now,
                                          const Schedule& schedule) {
  const OptionalTime last = MomentOfLastRun(window);
  if (schedule.with_date || !last) return Difference(schedule.unit, last, now);
  return DateDiff(schedule.unit, TimeOfDay(*last), TimeOfDay(now));
}

// All schedules are looked at in their order, and a difference that can't be taken counts as due,
// also that of a schedule that is not chosen. A number that is no schedule's is never due.
bool IsDue(const frmMain& window, const SYSTEMTIME& now, double chosen) {
  for (std::size_t index = 0; index < kSchedules.size(); ++index) {
    const Schedule& schedule = kSchedules[index];
    auto difference = TextDifference(window, now, schedule);
    if (!difference) difference = OwnDifference(window, now, schedule);
    if (!difference) return true;
    if (chosen == static_cast<double>(index) && *difference >= schedule.least_difference) {
      return true;
    }
  }
  return false;
}

SYSTEMTIME MinutesLater(const SYSTEMTIME& time, int count) {
  using namespace std::chrono;
  const auto day = sys_days(year(time.wYear) / time.wMonth / time.wDay);
  const auto moment = day + hours(time.wHour) + minutes(time.wMinute + count);
  const year_month_day date(floor<days>(moment));
  const hh_mm_ss clock(moment - floor<days>(moment));
  SYSTEMTIME later = time;
  later.wYear = static_cast<WORD>(static_cast<int>(date.year()));
  later.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
  later.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
  later.wDayOfWeek = static_cast<WORD>(weekday(floor<days>(moment)).c_encoding());
  later.wHour = static_cast<WORD>(clock.hours().count());
  later.wMinute = static_cast<WORD>(clock.minutes().count());
  later.wSecond = 0;
  return later;
}

void RunNow(frmMain& window) {
  window.TmrScheduler.SetEnabled(false);
  window.AutoRunActive = true;
  const unsigned scans_before = window.ScansBegun;
  cmdScan_Click(window);
  // A scan that was begun on top of it has left its own findings, for whoever began it.
  if (window.ScansBegun == scans_before + 1) {
    Sleep(kPauseMs);
    cmdFix_Click(window);
    Sleep(kPauseMs);
    cmdFinish_Click(window);
  }
  SaveLastRunTime(window, Now());
  window.TmrScheduler.SetEnabled(true);
}

}  // namespace

void Scheduler(frmMain& window) {
  window.TmrScheduler.SetEnabled(LeadingNumber(Setting("Scheduler", "0")) == 1);
}

std::string NextRun(const frmMain& window) {
  if (LeadingNumber(Setting("Scheduler", "0")) != 1) return {};
  const double chosen = std::floor(LeadingNumber(Setting("SchedulerType", "3")));
  const SYSTEMTIME now = Now();
  const std::string_view never = "after the next scan";
  // Without a last run each tick takes its own moment for it.
  if (window.LastRunTime.empty() && window.LastRunDate.empty()) return std::string(never);
  if (IsDue(window, now, chosen)) return "within a minute";
  constexpr int kDay = 24 * 60;
  int minutes = 0;
  // By the minute at first; what is days away is found by the hour.
  while (minutes < 8 * kDay) {
    const int step = minutes < kDay ? 1 : 60;
    if (IsDue(window, MinutesLater(now, minutes + step), chosen)) break;
    minutes += step;
  }
  if (minutes >= 8 * kDay) return std::string(never);
  SYSTEMTIME next = MinutesLater(now, ++minutes);
  while (!IsDue(window, next, chosen)) next = MinutesLater(now, ++minutes);
  return LongDateText(next) + " - " + TimeText(next);
}

void TmrScheduler_Timer(frmMain& window) {
  const SYSTEMTIME now = Now();
  window.LastRunTime = Setting("LastRunTime", TimeText(now).c_str());
  window.LastRunDate = Setting("LastRunDate", DateText(now).c_str());
  const double chosen = std::floor(LeadingNumber(Setting("SchedulerType", "3")));
  window.AutoRunActive = false;
  if (IsDue(window, now, chosen)) RunNow(window);
  window.AutoRunActive = false;
}

}  // namespace tidemark
