#include "helpers/date_difference.h"

#include <gtest/gtest.h>

#include "platform/locale_texts.h"
#include "tests/support/test_pc.h"

namespace tidemark {
namespace {

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
