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
  for (const auto& [percent, end] : {std::pair{0, 2}, {47, 49}, {100, 97}, {-50, 2}, {98, 97}}) {
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

}  // namespace
}  // namespace tidemark
