#include "platform/hosted/file_details.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

namespace tidemark::hosted {
namespace {

constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;

// In units of 100 ns since 1601. Times before that can't be told.
FILETIME FileTimeOf(const statx_timestamp& time) {
  const std::int64_t seconds = std::max<std::int64_t>(time.tv_sec + kSecondsTo1970, 0);
  const std::uint64_t units = static_cast<std::uint64_t>(seconds) * 10'000'000 + time.tv_nsec / 100;
  return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32U)};
}

}  // namespace

timespec HostTimeOf(const FILETIME* time) {
  if (time == nullptr) return {0, UTIME_OMIT};
  const std::uint64_t units = std::uint64_t{time->dwHighDateTime} << 32U | time->dwLowDateTime;
  const auto seconds = static_cast<std::int64_t>(units / 10'000'000) - kSecondsTo1970;
  return {seconds, static_cast<long>(units % 10'000'000 * 100)};
}

bool ReadHostDetails(int folder, const char* path, mode_t& mode, FileDetails& details) {
  struct statx status {};
  if (statx(folder, path, AT_SYMLINK_NOFOLLOW, STATX_BASIC_STATS | STATX_BTIME, &status) != 0) {
    return false;
  }
  mode = status.stx_mode;
  if (!S_ISREG(mode) && !S_ISDIR(mode)) return false;
  details.written = FileTimeOf(status.stx_mtime);
  details.accessed = FileTimeOf(status.stx_atime);
  details.created =
      (status.stx_mask & STATX_BTIME) != 0 ? FileTimeOf(status.stx_btime) : details.written;
  details.size_bytes = S_ISDIR(mode) ? 0 : status.stx_size;
  return true;
}

}  // namespace tidemark::hosted
