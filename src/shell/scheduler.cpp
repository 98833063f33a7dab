#include "shell/scheduler.h"

#include <array>
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

// No value when one of the texts can't be read.
std::optional<std::int64_t> Difference(DateUnit unit, const std::string& first,
                                       const std::string& second) {
  const std::optional<SYSTEMTIME> from = ParseDate(first);
  const std::optional<SYSTEMTIME> to = ParseDate(second);
  if (!from || !to) return std::nullopt;
  return DateDiff(unit, *from, *to);
}

// All schedules are looked at in their order, and a difference that can't be taken counts as due,
// also that of a schedule that is not chosen.
bool IsDue(const frmMain& window, const SYSTEMTIME& now, int chosen) {
  const std::string last = DayFirst(window.LastRunDate + " " + window.LastRunTime);
  const std::string current = DayFirst(DateText(now) + " " + TimeText(now));
  for (std::size_t index = 0; index < kSchedules.size(); ++index) {
    const Schedule& schedule = kSchedules[index];
    const auto difference = schedule.with_date
                                ? Difference(schedule.unit, last, current)
                                : Difference(schedule.unit, window.LastRunTime, TimeText(now));
    if (!difference) return true;
    if (chosen == static_cast<int>(index) && *difference >= schedule.least_difference) return true;
  }
  return false;
}

void RunNow(frmMain& window) {
  window.TmrScheduler.SetEnabled(false);
  window.AutoRunActive = true;
  cmdScan_Click(window);
  Sleep(kPauseMs);
  cmdFix_Click(window);
  Sleep(kPauseMs);
  cmdFinish_Click(window);
  SaveSetting("LastRunTime", TimeText(Now()));
  window.TmrScheduler.SetEnabled(true);
}

}  // namespace

void Scheduler(frmMain& window) {
  window.TmrScheduler.SetEnabled(LeadingNumber(Setting("Scheduler", "0")) == 1);
}

void TmrScheduler_Timer(frmMain& window) {
  const SYSTEMTIME now = Now();
  window.LastRunTime = Setting("LastRunTime", TimeText(now).c_str());
  window.LastRunDate = Setting("LastRunDate", DateText(now).c_str());
  int chosen = 0;
  TakeNumber(chosen, Setting("SchedulerType", "3"));
  window.AutoRunActive = false;
  if (IsDue(window, now, chosen)) RunNow(window);
  window.AutoRunActive = false;
}

}  // namespace tidemark
