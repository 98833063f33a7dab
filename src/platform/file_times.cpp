#include "platform/file_times.h"

namespace tidemark {

std::optional<SYSTEMTIME> LocalTimeOf(const FILETIME& time) {
  FILETIME local{};
  SYSTEMTIME calendar{};
  if (FileTimeToLocalFileTime(&time, &local) == FALSE ||
      FileTimeToSystemTime(&local, &calendar) == FALSE) {
    return std::nullopt;
  }
  return calendar;
}

}  // namespace tidemark
