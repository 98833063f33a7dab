#include "controls/xp_progress_bar.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tidemark {
namespace {

constexpr Pixel kWhite = 0xFFFFFF;

struct ProgressBar : testing::Test {
  ProgressBar() { bar.SetSize(103, 20); }

  Pixel At(int x, int y) { return bar.Painting().GetPixel(x, y); }
  // One behind the last column of the row that is not white, frame left out.
  int BarEnd(int y = 10) {
    int end = bar.Painting().Width() - 2;
    while (end > 2 && At(end - 1, y) == kWhite) --end;
    return end;
  }
  bool HasText(Pixel color) {
    const auto& pixels = bar.Painting().Pixels();
    return std::count(pixels.begin(), pixels.end(), color) > 0;
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
      {0, 8, 1, 12, 1},        // 12.5: half to even
      {0, 200, 3, 2, 4},       // 1.5
      {0, 200, 1, 0, 0},       // 0.5
      {10, 100, 20, 30, 3},    // Min is added, and divides what is read
      {-10, 100, 20, 10, 10},  // only a Min of 1 or more divides
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

TEST_F(ProgressBar, KeepsPositionAndPictureWhenMaxIsZero) {
  bar.SetValue(50);
  const auto before = bar.Painting().Pixels();
  bar.SetMax(0);
  bar.SetValue(10);
  EXPECT_EQ(bar.Percent(), 50);
  EXPECT_EQ(bar.Painting().Pixels(), before);
}

TEST_F(ProgressBar, EndsOnAChunkBoundary) {
  // A work area of 100 pixels from 3 on; chunk and gap are 8 pixels in style 0, else 4.
  struct {
    int style, percent, end;
  } const cases[] = {{0, 0, 2},     {0, 49, 49}, {0, 100, 97}, {1, 49, 51},
                     {1, 100, 101}, {2, 10, 11}, {0, -50, 2}};
  for (const auto& c : cases) {
    bar.SetScrolling(c.style);
    bar.SetValue(c.percent);
    EXPECT_EQ(BarEnd(), c.end) << c.style << ' ' << c.percent;
  }
}

TEST_F(ProgressBar, DrawsChunksWithWhiteGapsInABevel) {
  bar.SetValue(98);
  EXPECT_NE(At(3, 10), kWhite);
  EXPECT_NE(At(8, 10), kWhite);
  EXPECT_EQ(At(9, 10), kWhite);
  EXPECT_EQ(At(10, 10), kWhite);
  EXPECT_NE(At(11, 10), kWhite);
  EXPECT_EQ(At(50, 0), 0xBEBEBEU);
  EXPECT_EQ(At(0, 10), 0xBEBEBEU);
  EXPECT_EQ(At(50, 1), 0xEFEFEFU);
  EXPECT_EQ(At(50, 19), 0xEFEFEFU);
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
  EXPECT_EQ(At(150, 20), kWhite);
  EXPECT_NE(At(17, 20), kWhite);
  for (int x = 18; x < 22; ++x) EXPECT_EQ(At(x, 20), kWhite) << x;
  EXPECT_NE(At(22, 20), kWhite);
  for (int y = 0; y < 4; ++y) EXPECT_EQ(At(100, y), y < 2 ? 0xBEBEBEU : 0xEFEFEFU) << y;
  EXPECT_EQ(At(8, 20), ShadeColor(0x3D77FF, 220));
  EXPECT_EQ(At(8, 21), ShadeColor(0x3D77FF, 220));
}

TEST_F(ProgressBar, StandsUprightWhenVertical) {
  bar.SetSize(20, 96);
  bar.SetOrientation(1);
  bar.SetScrolling(1);
  bar.SetValue(49);
  EXPECT_EQ(At(10, 47), kWhite);
  EXPECT_NE(At(10, 48), kWhite);
  EXPECT_NE(At(10, 93), kWhite);
}

TEST_F(ProgressBar, PaintsTheOtherStylesUpToThePosition) {
  const Pixel color = 0x800000;
  Canvas pattern(2, 2);
  pattern.SetPixel(1, 0, 0x00FF00);
  bar.SetImage(pattern);
  bar.SetColor(0x000080);
  bar.SetSize(104, 20);
  bar.SetValue(50);
  const struct {
    int style, x, y;
    Pixel pixel;
  } cases[] = {{3, 51, 18, ShadeColor(color, 180)},
               {3, 51, 19, color},
               {4, 51, 17, ShadeColor(color, 200)},
               {4, 52, 17, kWhite},
               {5, 51, 10, color},
               {5, 52, 10, kWhite},
               {6, 90, 10, 0x000000},
               {7, 48, 10, color},
               {7, 49, 10, ShadeColor(color, 190)},
               {8, 3, 2, 0x00FF00},
               {8, 2, 2, kWhite}};
  for (const auto& c : cases) {
    bar.SetScrolling(c.style);
    EXPECT_EQ(At(c.x, c.y), c.pixel) << c.style << ' ' << c.x;
  }
}

TEST_F(ProgressBar, ShowsTextOnlyWhenAsked) {
  bar.SetColor(0x00FF00);
  EXPECT_FALSE(HasText(0x000000));
  bar.SetShowText(true);
  EXPECT_TRUE(HasText(0x000000));
  BarLook look;
  look.percent = 7;
  EXPECT_EQ(BarText(look), "7 %");
  look.scrolling = 2;
  EXPECT_EQ(BarText(look), "Searching..");
}

TEST_F(ProgressBar, RepaintsForWhatShowsAndNotForMinAndMax) {
  bar.SetValue(90);
  const auto version = bar.PaintingVersion();
  bar.SetMax(1000);
  bar.SetValue(900);
  EXPECT_EQ(bar.PaintingVersion(), version);
  bar.SetValue(910);
  EXPECT_GT(bar.PaintingVersion(), version);
}

TEST_F(ProgressBar, TurnsSystemColoursIntoPlainOnes) {
  bar.SetColor(0x80000005);
  EXPECT_EQ(bar.Color(), 0xFFFFFFU);
  bar.SetColor(0x800000FF);
  EXPECT_EQ(bar.Color(), 0U);
  EXPECT_EQ(PixelOf(0xFF773D), 0x3D77FFU);
  EXPECT_EQ(ShadeColor(0x3D77FF, 0), 0x3D77FFU);
  EXPECT_EQ(ShadeColor(0x3D77FF, 255), kWhite);
  EXPECT_EQ(ShadeColor(0x000064, 155), 0x9B9BC2U);
}

}  // namespace
}  // namespace tidemark
