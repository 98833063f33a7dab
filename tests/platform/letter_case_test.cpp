#include "platform/letter_case.h"

#include <gtest/gtest.h>

namespace tidemark {
namespace {

TEST(LetterCase, MapsOneCharacterToOne) {
  const struct {
    const char* lower;
    const char* upper;
  } kPairs[] = {
      {"az19_", "AZ19_"},
      {"\u00E0\u00FE\u00FF", "\u00C0\u00DE\u0178"},
      {"\u0101\u017E", "\u0100\u017D"},
      {"\u03B1\u03C9\u03AC", "\u0391\u03A9\u0386"},
      {"\u0436\u0451", "\u0416\u0401"},
      {"\u0561", "\u0531"},
      {"\u1E01\u1EFF", "\u1E00\u1EFE"},
      {"\uFF41", "\uFF21"},
  };
  for (const auto& [lower, upper] : kPairs) {
    EXPECT_EQ(UpperCase(std::string_view(lower)), upper);
    EXPECT_EQ(LowerCase(std::string_view(upper)), lower);
  }
  // No single capital; divided by no case; no UTF-8.
  for (const std::string_view same : {"\u00DF\u0131", "\u00D7\u00F7", "\xFF\xC3"}) {
    EXPECT_EQ(UpperCase(same), same);
  }
}

TEST(LetterCase, EveryCapitalLeadsBackToItsSmallLetter) {
  int pairs = 0;
  for (char32_t letter = 0; letter < 0x10000; ++letter) {
    const char32_t upper = UpperCase(letter);
    if (upper == letter) continue;
    ++pairs;
    EXPECT_EQ(LowerCase(upper), letter);
    EXPECT_EQ(UpperCase(upper), upper);
  }
  EXPECT_GT(pairs, 600);
}

TEST(LetterCase, OrdersByCapitals) {
  EXPECT_EQ(CompareIgnoringCase("Stra\u00DFe \u00E9", "STRA\u00DFE \u00C9"), 0);
  const char* const kAscending[] = {"",  "a",      "AB",     "a\\",        "a_",
                                    "b", "\u00E9", "\u0436", "\U0001F600", "\uFF41"};
  for (std::size_t i = 0; i < std::size(kAscending); ++i) {
    for (std::size_t j = 0; j < std::size(kAscending); ++j) {
      const int order = CompareIgnoringCase(kAscending[i], kAscending[j]);
      EXPECT_EQ(order < 0, i < j) << kAscending[i] << " : " << kAscending[j];
      EXPECT_EQ(order > 0, i > j) << kAscending[i] << " : " << kAscending[j];
    }
  }
}

}  // namespace
}  // namespace tidemark
