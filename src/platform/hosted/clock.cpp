#include "platform/hosted/clock.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace tidemark::hosted {
namespace {

using std::chrono::milliseconds;

constexpr std::int64_t kMsPerDay = 86'400'000;

// The time of day 0 of the platform's calendar, in days of std::chrono's.
constexpr std::chrono::sys_days kFirstDay{std::chrono::year{1601} / 1 / 1};

std::int64_t MsFromLocal(const SYSTEMTIME& time) {
  const std::chrono::sys_days day{std::chrono::year{time.wYear} / std::chrono::month{time.wMonth} /
                                  std::chrono::day{time.wDay}};
  return std::int64_t{(day - kFirstDay).count()} * kMsPerDay + time.wHour * 3'600'000LL +
         time.wMinute * 60'000LL + time.wSecond * 1'000LL + time.wMilliseconds;
}

std::uint64_t SteadyMilliseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(std::chrono::duration_cast<milliseconds>(now).count());
}

}  // namespace

SYSTEMTIME CalendarTime(std::int64_t ms) {
  const std::chrono::sys_days day = kFirstDay + std::chrono::days{ms / kMsPerDay};
  const std::chrono::year_month_day date{day};
  const auto of_day = static_cast<std::uint32_t>(ms % kMsPerDay);
  SYSTEMTIME time{};
  time.wYear = static_cast<WORD>(static_cast<int>(date.year()));
  time.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
  time.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
  time.wDayOfWeek = static_cast<WORD>(std::chrono::weekday{day}.c_encoding());
  time.wHour = static_cast<WORD>(of_day / 3'600'000);
  time.wMinute = static_cast<WORD>(of_day / 60'000 % 60);
  time.wSecond = static_cast<WORD>(of_day / 1'000 % 60);
  time.wMilliseconds = static_cast<WORD>(of_day % 1'000);
  return time;
}

std::uint64_t Clock::Milliseconds() const {
  return set_ ? set_milliseconds_ : SteadyMilliseconds();
}

SYSTEMTIME Clock::LocalTime() const {
  if (set_) return CalendarTime(set_local_ms_ + static_cast<std::int64_t>(set_milliseconds_));
  const auto now = std::chrono::system_clock::now();
  const auto ms = std::chrono::duration_cast<milliseconds>(now.time_since_epoch()).count();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  std::tm local{};
  localtime_r(&seconds, &local);
  SYSTEMTIME time{};
  time.wYear = static_cast<WORD>(local.tm_year + 1900);
  time.wMonth = static_cast<WORD>(local.tm_mon + 1);
  time.wDayOfWeek = static_cast<WORD>(local.tm_wday);
  time.wDay = static_cast<WORD>(local.tm_mday);
  time.wHour = static_cast<WORD>(local.tm_hour);
  time.wMinute = static_cast<WORD>(local.tm_min);
  time.wSecond = static_cast<WORD>(local.tm_sec);
  time.wMilliseconds = static_cast<WORD>(ms % 1'000);
  return time;
}

void Clock::Sleep(std::uint32_t ms) {
  if (set_) {
    set_milliseconds_ += ms;
  } else {
    std::this_thread::sleep_for(milliseconds{ms});
  }
}

void Clock::SetLocalTime(const SYSTEMTIME& time) {
  set_milliseconds_ = Milliseconds();
  set_local_ms_ = MsFromLocal(time) - static_cast<std::int64_t>(set_milliseconds_);
  set_ = true;
}

void Clock::Advance(std::uint64_t ms) {
  if (!set_) SetLocalTime(LocalTime());
  set_milliseconds_ += ms;
}

}  // namespace tidemark::hosted
