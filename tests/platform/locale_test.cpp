#include <gtest/gtest.h>

#include "platform/locale_formats.h"
#include "platform/locale_texts.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

std::string Text(const std::optional<SYSTEMTIME>& time) {
  if (!time) return "none";
  return std::to_string(time->wYear) + '-' + std::to_string(time->wMonth) + '-' +
         std::to_string(time->wDay) + ' ' + std::to_string(time->wHour) + ':' +
         std::to_string(time->wMinute) + ':' + std::to_string(time->wSecond) + " day " +
         std::to_string(time->wDayOfWeek);
}
std::string Read(const std::string& text) { return Text(ParseDate(text)); }

TEST(LocaleTexts, AreThoseOfUsEnglish) {
  const TestPc pc;
  const SYSTEMTIME afternoon{2006, 11, 6, 4, 13, 5, 9, 0};
  EXPECT_EQ(DateText(afternoon), "11/4/2006");
  EXPECT_EQ(TimeText(afternoon), "1:05:09 PM");
  EXPECT_EQ(LongDateText(afternoon), "Saturday, November 04 2006");
  EXPECT_EQ(TimeText({2006, 11, 6, 4, 0, 0, 0, 0}), "12:00:00 AM");
}

TEST(LocaleTexts, DatesAreReadAsPeopleWriteThem) {
  const TestPc pc;
  const struct {
    const char* text;
    const char* date;
  } kCases[] = {
      {"11/4/2006", "2006-11-4 0:0:0 day 6"},
      {" 11-4-2006 ", "2006-11-4 0:0:0 day 6"},
      {"11 4 06", "2006-11-4 0:0:0 day 6"},
      {"13/4/2006", "2006-4-13 0:0:0 day 4"},  // only the other order gives a date
      {"2006-11-04", "2006-11-4 0:0:0 day 6"},
      {"1/1/99", "1999-1-1 0:0:0 day 5"},
      {"11/2006", "2006-11-1 0:0:0 day 3"},
      {"Saturday, November 04 2006", "2006-11-4 0:0:0 day 6"},
      {"4 nov 2006", "2006-11-4 0:0:0 day 6"},
      {"11/4/2006 1:05:09 PM", "2006-11-4 13:5:9 day 6"},
      {"13:05", "1899-12-30 13:5:0 day 6"},
      {"12 PM", "1899-12-30 12:0:0 day 6"},
      {"2/29/2004", "2004-2-29 0:0:0 day 0"},
  };
  for (const auto& [text, date] : kCases) EXPECT_EQ(Read(text), date) << text;
  for (const char* const none :
       {"", " ", "never", "5", "2006", "2/30/2006", "2/29/2005", "0/1/2006", "11/258/2006",
        "11//4/2006", "11/4/2006/3", "11/4/2006x", "11/4/20066", "32/1/2006", "24:00", "12:60",
        "1/1/99 25:00"}) {
    EXPECT_EQ(Read(none), "none") << none;
  }
}

TEST(LocaleTexts, AreReadBackInTheirOwnFormats) {
  const LocaleFormats dots{"d.M.yyyy", "H.mm.ss", ".", ".", "", ""};
  const LocaleFormats short_dots{"dd.MM.yy", "HH.mm.ss", ".", ".", "", ""};
  const LocaleFormats words{"d.M.yyyy '\xD0\xB3.'", "tt h'h'mm ss", ".", "h", "fm", "em"};
  const LocaleFormats us{"M/d/yyyy", "h:mm:ss tt", "/", ":", "AM", "PM"};
  struct Case {
    const LocaleFormats& formats;
    const char *text, *date, *time;  // as a date, and as a time
  };
  const std::string afternoon = "2006-11-4 13:5:9 day 6";
  for (const Case& one : {
           Case{dots, "4.11.2006 13.05.09", afternoon.c_str(), "none"},
           {dots, " 04.11.06 13.05.09 ", afternoon.c_str(), "none"},  // day first, in numbers
           {dots, "13.05.09", "2009-5-13 0:0:0 day 3", "1899-12-30 13:5:9 day 6"},
           {dots, "23.59.59", "1899-12-30 23:59:59 day 6", "1899-12-30 23:59:59 day 6"},
           {dots, "4.11.2006 24.00.00", "none", "none"},
           {dots, "31.2.2006", "none", "none"},
           {dots, "4.11.2006 13.05.09x", "none", "none"},
           {short_dots, "04.11.06 13.05.09", afternoon.c_str(), "none"},
           {words, "4.11.2006 \xD0\xB3. em 1h05 09", afternoon.c_str(), "none"},
           {words, "FM 12h05 09", "1899-12-30 0:5:9 day 6", "1899-12-30 0:5:9 day 6"},
           {words, "em 13h05 09", "none", "none"},
           {us, "11/4/2006 1:05:09 PM", afternoon.c_str(), "none"},
           {us, "04/11/06 13:05:09", "2006-4-11 13:5:9 day 2", "none"},  // the month comes first
           {us, "14/11/06 13:05:09", "none", "none"},
           {us, "", "none", "none"},
           {{"", "", "", "", "", ""}, "x", "none", "none"},
           {{"'", "'tt", "'", "", "", ""}, "1", "none", "none"},
           {{"d", "'at' ss", "", "", "", ""}, "at 09", "none", "none"},
       }) {
    EXPECT_EQ(Text(ReadOwnDate(one.text, one.formats)), one.date) << one.text;
    EXPECT_EQ(Text(ReadOwnTime(one.text, one.formats)), one.time) << one.text;
  }
  const TestPc pc;
  EXPECT_EQ(UserFormats().short_date + '|' + UserFormats().long_time, "M/d/yyyy|h:mm:ss tt");
  EXPECT_EQ(UserFormats().before_noon + UserFormats().after_noon, "AMPM");
}

}  // namespace
}  // namespace tidemark
