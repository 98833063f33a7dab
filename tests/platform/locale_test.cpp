#include <gtest/gtest.h>

#include "platform/locale_texts.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

std::string Read(const std::string& text) {
  const std::optional<SYSTEMTIME> time = ParseDate(text);
  if (!time) return "none";
  return std::to_string(time->wYear) + '-' + std::to_string(time->wMonth) + '-' +
         std::to_string(time->wDay) + ' ' + std::to_string(time->wHour) + ':' +
         std::to_string(time->wMinute) + ':' + std::to_string(time->wSecond) + " day " +
         std::to_string(time->wDayOfWeek);
}

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
       {"", " ", "never", "5", "2006", "2/30/2006", "2/29/2005", "0/1/2006", "11//4/2006",
        "11/4/2006/3", "11/4/2006x", "11/4/20066", "32/1/2006", "24:00", "12:60", "1/1/99 25:00"}) {
    EXPECT_EQ(Read(none), "none") << none;
  }
}

}  // namespace
}  // namespace tidemark
