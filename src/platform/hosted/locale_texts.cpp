// Date and time texts by the pictures and names of pc.ini.
#include "platform/locale_texts.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "platform/hosted/clock.h"
#include "platform/hosted/date_parser.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/pc_settings.h"
#include "platform/locale_formats.h"
#include "platform/unicode.h"

namespace tidemark {
namespace {

using hosted::HostedPc;
using hosted::PcSettings;

std::string Number(unsigned number, std::size_t digits) {
  char text[16] = "";
  std::snprintf(text, sizeof(text), "%0*u", static_cast<int>(digits), number);
  return text;
}

std::string Abbreviation(std::string_view name) { return std::string(FirstCharacters(name, 3)); }

// One run of the same letter of a picture; the number of letters chooses the form.
std::string Field(char letter, std::size_t count, const SYSTEMTIME& time,
                  const PcSettings& settings) {
  const std::size_t digits = std::min<std::size_t>(count, 2);
  switch (letter) {
    case 'd':
      if (count <= 2) return Number(time.wDay, digits);
      return count == 3 ? Abbreviation(settings.day_names[time.wDayOfWeek % 7])
                        : settings.day_names[time.wDayOfWeek % 7];
    case 'M':
      if (count <= 2) return Number(time.wMonth, digits);
      return count == 3 ? Abbreviation(settings.month_names[(time.wMonth + 11U) % 12])
                        : settings.month_names[(time.wMonth + 11U) % 12];
    case 'y':
      return count <= 2 ? Number(time.wYear % 100U, digits) : Number(time.wYear, 4);
    case 'h':
      return Number((time.wHour + 11U) % 12 + 1, digits);
    case 'H':
      return Number(time.wHour, digits);
    case 'm':
      return Number(time.wMinute, digits);
    case 's':
      return Number(time.wSecond, digits);
    case 't':
      return std::string(time.wHour < 12 ? "AM" : "PM").substr(0, digits);
    default:
      return std::string(count, letter);
  }
}

// Letters stand for fields, text in single quotes and all else for itself.
std::string Format(std::string_view picture, const SYSTEMTIME& time) {
  const PcSettings& settings = HostedPc::Current().settings();
  std::string text;
  for (std::size_t i = 0; i < picture.size();) {
    const char letter = picture[i];
    if (letter == '\'') {
      const auto end = std::min(picture.find('\'', i + 1), picture.size());
      text += picture.substr(i + 1, end - i - 1);
      i = end + 1;
      continue;
    }
    const auto end = std::min(picture.find_first_not_of(letter, i), picture.size());
    text += Field(letter, end - i, time, settings);
    i = end;
  }
  return text;
}

// What stands between the first two fields of a picture.
std::string Separator(std::string_view picture, std::string_view letters) {
  const auto start = std::min(picture.find_first_not_of(letters), picture.size());
  const auto end = std::min(picture.find_first_of(letters, start), picture.size());
  std::string text(picture.substr(start, end - start));
  std::erase(text, '\'');
  return text;
}

}  // namespace

std::string DateText(const SYSTEMTIME& time) {
  return Format(HostedPc::Current().settings().short_date, time);
}

std::string TimeText(const SYSTEMTIME& time) {
  return Format(HostedPc::Current().settings().long_time, time);
}

std::string DateSeparator() { return Separator(HostedPc::Current().settings().short_date, "dMy"); }

std::string TimeSeparator() { return Separator(HostedPc::Current().settings().long_time, "hHmst"); }

std::string LongDateText(const SYSTEMTIME& time) { return Format("dddd, MMMM dd yyyy", time); }

LocaleFormats UserFormats() {
  const PcSettings& settings = HostedPc::Current().settings();
  return {settings.short_date, settings.long_time, DateSeparator(), TimeSeparator(), "AM", "PM"};
}

std::optional<SYSTEMTIME> ParseUsualDate(const std::string& text) {
  HostedPc& pc = HostedPc::Current();
  return hosted::ParseDateText(text, pc.settings(), pc.clock().LocalTime());
}

}  // namespace tidemark
