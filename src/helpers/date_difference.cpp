#include "helpers/date_difference.h"

#include <chrono>

namespace tidemark {
namespace {

std::chrono::minutes MinutesOf(const SYSTEMTIME& time) {
  using namespace std::chrono;
  const sys_days day{year{time.wYear} / month{time.wMonth} / std::chrono::day{time.wDay}};
  return day.time_since_epoch() + hours{time.wHour} + minutes{time.wMinute};
}

}  // namespace

std::int64_t DateDiff(DateUnit unit, const SYSTEMTIME& first, const SYSTEMTIME& second) {
  const std::chrono::minutes from = MinutesOf(first);
  const std::chrono::minutes to = MinutesOf(second);
  if (unit == DateUnit::kMinutes) return (to - from).count();
  using std::chrono::hours;
  return (std::chrono::floor<hours>(to) - std::chrono::floor<hours>(from)).count();
}

}  // namespace tidemark
