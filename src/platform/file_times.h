// The times of files as dates.
#pragma once

#include <optional>

#include "platform/winapi.h"

namespace tidemark {

// In the PC's local time; no value for a time that is no date.
std::optional<SYSTEMTIME> LocalTimeOf(const FILETIME& time);

}  // namespace tidemark
