// GetLocalTime, GetTickCount64 and Sleep on the hosted PC's clock; file times, which are the
// host's.
#include <chrono>
#include <cstdint>
#include <ctime>

#include "platform/hosted/clock.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_editor.h"
#include "platform/winapi.h"

using tidemark::hosted::HostedPc;

namespace {

// File times count units of 100 ns since 1601.
constexpr std::int64_t kUnitsPerMs = 10'000;

std::int64_t UnitsOf(const FILETIME& time) {
  return static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32U | time.dwLowDateTime);
}

}  // namespace

void GetLocalTime(SYSTEMTIME* time) { *time = HostedPc::Current().clock().LocalTime(); }

BOOL FileTimeToLocalFileTime(const FILETIME* time, FILETIME* local) {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm parts{};
  localtime_r(&now, &parts);
  const std::int64_t offset = std::int64_t{parts.tm_gmtoff} * 1000 * kUnitsPerMs;
  const auto units = static_cast<std::uint64_t>(UnitsOf(*time) + offset);
  *local = {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32U)};
  return TRUE;
}

BOOL FileTimeToSystemTime(const FILETIME* time, SYSTEMTIME* calendar) {
  const std::int64_t units = UnitsOf(*time);
  if (units < 0) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  *calendar = tidemark::hosted::CalendarTime(units / kUnitsPerMs);
  return TRUE;
}

ULONGLONG GetTickCount64() { return HostedPc::Current().clock().Milliseconds(); }

void Sleep(DWORD milliseconds) {
  HostedPc& pc = HostedPc::Current();
  pc.clock().Sleep(milliseconds);
  pc.editor().CatchUp();
}
