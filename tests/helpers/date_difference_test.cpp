#include "helpers/date_difference.h"

#include <gtest/gtest.h>

#include "platform/locale_texts.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

TEST(DateDiff, CountsTheBoundariesBetweenTwoMoments) {
  struct Case {
    SYSTEMTIME first, second;
    std::int64_t minutes, hours;
  };
  for (const Case& one : {
           Case{{2006, 11, 0, 4, 10, 59, 59, 0}, {2006, 11, 0, 4, 11, 0, 0, 0}, 1, 1},
           {{2006, 11, 0, 4, 10, 0, 0, 0}, {2006, 11, 0, 4, 10, 59, 59, 0}, 59, 0},
           {{2006, 11, 0, 4, 11, 0, 0, 0}, {2006, 11, 0, 4, 10, 59, 59, 0}, -1, -1},
           {{2004, 2, 0, 28, 0, 0, 0, 0}, {2004, 3, 0, 1, 0, 0, 0, 0}, 2880, 48},  // a leap day
           {{1899, 12, 0, 30, 23, 50, 0, 0}, {1899, 12, 0, 30, 0, 30, 0, 0}, -1400, -23},
           {{100, 1, 0, 1, 0, 0, 0, 0}, {9999, 12, 0, 31, 23, 59, 0, 0}, 5206895999, 86781599},
       }) {
    EXPECT_EQ(DateDiff(DateUnit::kMinutes, one.first, one.second), one.minutes);
    EXPECT_EQ(DateDiff(DateUnit::kHours, one.first, one.second), one.hours);
  }
}

TEST(TimeFormats, TakeTheLocalesSeparators) {
  TestPc pc;
  const SYSTEMTIME time{2006, 11, 6, 4, 13, 5, 9, 0};
  EXPECT_EQ(FormatTime(time, "dd/mm/yy hh:nn:ss"), "04/11/06 13:05:09");
  EXPECT_EQ(FormatTime(time, "yymmdd_hhnnss"), "061104_130509");
  EXPECT_EQ(DateTimeText(time), "11/4/2006 1:05:09 PM");
  EXPECT_EQ(DateTimeText({2006, 11, 6, 4, 0, 0, 0, 5}), "11/4/2006") << "midnight";
  pc.SetLocale("d.M.yyyy", "HH.mm.ss");
  if (!pc.CanFault()) return;
  EXPECT_EQ(FormatTime(time, "dd/mm/yy hh:nn:ss"), "04.11.06 13.05.09");
}

}  // namespace
}  // namespace tidemark
