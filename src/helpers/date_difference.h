// How far two moments are apart, counted as the platform's date library does.
#pragma once

#include <cstdint>

#include "platform/winapi.h"

namespace tidemark {

enum class DateUnit { kMinutes, kHours };

// The boundaries of the unit that lie between the two moments, not the elapsed whole units: from
// 10:59 to 11:00 is 1 in hours. Negative when the first moment is the later one.
std::int64_t DateDiff(DateUnit unit, const SYSTEMTIME& first, const SYSTEMTIME& second);

}  // namespace tidemark
