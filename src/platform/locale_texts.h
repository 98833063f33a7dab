// Date and time texts in the user's locale, as the platform's default formats give them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark {

// The short date and the long time of the locale: "11/4/2006" and "1:05:09 PM" in US English.
std::string DateText(const SYSTEMTIME& time);
std::string TimeText(const SYSTEMTIME& time);

// The text that the platform makes of a date with its time: "11/4/2006 1:05:09 PM". Midnight to the
// second has no time in it.
std::string DateTimeText(const SYSTEMTIME& time);

// By a pattern as the platform's Format function takes it: dd, mm, yy, hh (of 24), nn for minutes
// and ss are two digits each, "/" and ":" are the locale's separators, all else stands for itself.
std::string FormatTime(const SYSTEMTIME& time, std::string_view pattern);

// What stands between day and month, and between hour and minute: "/" and ":" in US English.
std::string DateSeparator();
std::string TimeSeparator();

// "dddd, mmmm dd yyyy" with the locale's names: "Saturday, November 04 2006".
std::string LongDateText(const SYSTEMTIME& time);

// Reads a date text in the locale's own formats, else as the platform's date parser does: digits
// under the locale's order of day and month, any of "/", "-", "." between them, month names; where
// the locale's order gives no date, the other orders are tried. A text with only a time of day
// gives the year 1899, month 12, day 30. No date in the text: no value.
std::optional<SYSTEMTIME> ParseDate(const std::string& text);

// The same for a text that should be a time of day: where the locale's times look like dates
// ("13.05.09"), it is one.
std::optional<SYSTEMTIME> ParseTime(const std::string& text);

}  // namespace tidemark
