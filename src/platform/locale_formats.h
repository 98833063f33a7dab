// Reads dates and times back that were written in a locale's own formats, whatever their separators
// are. The platform's readers know the usual ones: "13.05.09" is a date to them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark {

// The formats are the platform's pictures ("Day, Month, Year, and Era Format Pictures" and "Hour,
// Minute, and Second Format Pictures" of its documentation).
struct LocaleFormats {
  std::string short_date;  // "M/d/yyyy"
  std::string long_time;   // "h:mm:ss tt"
  std::string date_separator;
  std::string time_separator;
  std::string before_noon;  // "AM"
  std::string after_noon;
};

// The user's.
LocaleFormats UserFormats();

// What the platform's own reader makes of any text under the user's locale.
std::optional<SYSTEMTIME> ParseUsualDate(const std::string& text);

// A date, a date with a time, or a time, as DateText, TimeText and FormatTime("dd/mm/yy hh:nn:ss")
// write them in these formats; blanks at the ends are passed over. The order of day and month is
// the format's. A time alone has the platform's day 0, 30 December 1899. No value for any other
// text, and where the date's format has names in it.
std::optional<SYSTEMTIME> ReadOwnDate(std::string_view text, const LocaleFormats& formats);

// A time alone, also where it could be a date.
std::optional<SYSTEMTIME> ReadOwnTime(std::string_view text, const LocaleFormats& formats);

}  // namespace tidemark
