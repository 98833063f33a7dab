#include "controls/xp_progress_bar.h"

#include <gtest/gtest.h>

#include <utility>

namespace tidemark {
namespace {

constexpr Pixel kWhite = 0xFFFFFF;

struct ProgressBar : testing::Test {
  ProgressBar() { bar.SetSize(103, 20); }

  Pixel At(int x, int y) { return bar.Painting().GetPixel(x, y); }
  // One behind the last column of the row that is not white, frame left out.
  int BarEnd() {
    int end = bar.Painting().Width() - 2;
    while (end > 2 && At(end - 1, 10) == kWhite) --end;
    return end;
  }

  XP_ProgressBar bar{nullptr, "pbarScan"};
};

TEST_F(ProgressBar, TurnsAValueIntoAWholePercentageAndBack) {
  struct {
    int min, max, value, percent, read_back;
  } const cases[] = {
      {0, 100, 37, 37, 37},
      {0, 100, 250, 100, 100},
      {0, 100, -5, -5, -5},
      {0, 8, 1, 12, 1},      // 12.5: half to even
      {0, 200, 3, 2, 4},     // 1.5
      {10, 100, 20, 30, 3},  // Min is added, and divides what is read
      {0, 2000000000, 2000000000, 100, 2000000000},
      {0, 1, 2000000000, 0, 0},  // 2E11 % is no 32-bit number: nothing happens
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.min << ' ' << c.max << ' ' << c.value);
    XP_ProgressBar fresh(nullptr, "bar");
    fresh.SetMin(c.min);
    fresh.SetMax(c.max);
    fresh.SetValue(c.value);
    EXPECT_EQ(fresh.Percent(), c.percent);
    EXPECT_EQ(fresh.Value(), c.read_back);
  }
}

TEST_F(ProgressBar, RepaintsForWhatShowsAndNotForMaxEvenWhereItIsZero) {
  bar.SetValue(90);
  const auto version = bar.PaintingVersion();
  bar.SetMax(0);
  bar.SetValue(10);
  EXPECT_EQ(bar.Percent(), 90);
  bar.SetMax(1000);
  bar.SetValue(900);
  EXPECT_EQ(bar.PaintingVersion(), version);
  bar.SetValue(910);
  EXPECT_GT(bar.PaintingVersion(), version);
}

TEST_F(ProgressBar, DrawsChunksWithWhiteGapsInABevel) {
  // A work area of 100 pixels from 3 on; chunk and gap are 8 pixels.
  for (const auto& [percent, end] : {std::pair{0, 2}, {49, 49}, {100, 97}, {-50, 2}, {98, 97}}) {
    bar.SetValue(percent);
    EXPECT_EQ(BarEnd(), end) << percent;
  }
  for (const auto& [x, painted] : {std::pair{3, true}, {8, true}, {9, false}, {11, true}}) {
    EXPECT_EQ(At(x, 10) != kWhite, painted) << x;
  }
  EXPECT_EQ(At(50, 0), 0xBEBEBEU);
  EXPECT_EQ(At(50, 1), 0xEFEFEFU);
  // Lighter at the middle; the colour itself between the middle and the edge.
  bar.SetColor(0xFF773D);
  EXPECT_EQ(At(4, 10), ShadeColor(0x3D77FF, 220));
  EXPECT_EQ(At(4, 3), 0x3D77FFU);
}

TEST_F(ProgressBar, GrowsWithTheDotsPerInch) {
  // Twice all of the above: a work area of 200 pixels from 6 on, chunks of 12 and gaps of 4.
  bar.SetDisplay({.dots_per_inch = 192});
  bar.SetSize(206, 40);
  bar.SetColor(0xFF773D);
  bar.SetValue(49);
  EXPECT_NE(At(97, 20), kWhite);
  EXPECT_EQ(At(98, 20), kWhite);
  for (int x = 17; x <= 22; ++x) EXPECT_EQ(At(x, 20) == kWhite, x > 17 && x < 22) << x;
  for (int y = 0; y < 4; ++y) EXPECT_EQ(At(100, y), y < 2 ? 0xBEBEBEU : 0xEFEFEFU) << y;
  EXPECT_EQ(At(8, 21), ShadeColor(0x3D77FF, 220));
}

// The program's own bars are all of style 0, level and without text.
TEST_F(ProgressBar, HasOtherLooksThanTheProgramUses) {
  bar.SetColor(0x000080);
  bar.SetSize(104, 20);
  bar.SetValue(50);
  for (const auto& [style, pixel] : {std::pair{3, ShadeColor(0x800000, 180)},
                                     {4, ShadeColor(0x800000, 200)},
                                     {5, Pixel{0x800000}}}) {
    bar.SetScrolling(style);
    EXPECT_EQ(At(51, style == 4 ? 17 : 18), pixel) << style;
    EXPECT_EQ(At(52, 10) == kWhite, style > 3) << style;
  }
  bar.SetSize(20, 96);
  bar.SetOrientation(1);
  bar.SetScrolling(1);
  EXPECT_EQ(At(10, 40), kWhite);
  EXPECT_NE(At(10, 93), kWhite);
  BarLook look;
  look.percent = 7;
  EXPECT_EQ(BarText(look), "7 %");
}

}  // namespace
}  // namespace tidemark
