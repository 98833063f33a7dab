#include "toolkit/canvas.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tidemark {
namespace {

std::vector<std::string> Drawing(const Canvas& canvas) {
  std::vector<std::string> rows;
  for (int y = 0; y < canvas.Height(); ++y) {
    std::string& row = rows.emplace_back();
    for (int x = 0; x < canvas.Width(); ++x) row += canvas.GetPixel(x, y) == 0xFFFFFF ? '.' : '#';
  }
  return rows;
}

TEST(Canvas, DrawsLinesWithoutTheirLastPoint) {
  Canvas canvas(6, 4);
  canvas.Line(0, 0, 5, 0, 0);
  canvas.Line(5, 3, 0, 3, 0);
  canvas.Line(1, 1, 4, 3, 0);
  EXPECT_EQ(Drawing(canvas), (std::vector<std::string>{"#####.", ".#....", "..##..", ".#####"}));
}

TEST(Canvas, ClipsEverythingToItsArea) {
  Canvas canvas(3, 2);
  canvas.FillRect({-5, -5, 1, 50}, 0);
  canvas.Line(-4, 1, 9, 1, 0);
  canvas.Line(2, -3, 2, 8, 0);
  canvas.VerticalGradient({5, 5, 2, 2}, 0, 0);
  canvas.Tile(Canvas(0, 5), {-1, -1, 9, 9});
  canvas.PaintText(-3, 30, "%", 0, {-9, -9, 99, 99});
  EXPECT_EQ(Drawing(canvas), (std::vector<std::string>{"#.#", "###"}));
  EXPECT_EQ(canvas.GetPixel(3, 0), 0U);
  EXPECT_EQ(Canvas(-1, 4).Pixels().size(), 0U);
}

TEST(Canvas, GoesFromOneColourToTheOther) {
  Canvas canvas(3, 3);
  canvas.VerticalGradient(canvas.Area(), 0x000000, 0x10FF20);
  EXPECT_EQ(canvas.GetPixel(1, 0), 0x000000U);
  EXPECT_EQ(canvas.GetPixel(1, 1), 0x087F10U);
  EXPECT_EQ(canvas.GetPixel(1, 2), 0x10FF20U);
  canvas.HorizontalGradient({1, 0, 3, 1}, 0x0000FF, 0x000000);
  EXPECT_EQ(canvas.GetPixel(1, 0), 0x0000FFU);
  EXPECT_EQ(canvas.GetPixel(2, 0), 0x000000U);
}

TEST(Canvas, PaintsTextInsideItsClipOnly) {
  Canvas canvas(Canvas::TextWidth("4\xC3\xA4"), Canvas::kTextHeight);
  canvas.PaintText(0, 0, "4\xC3\xA4", 0, {0, 0, 8, 99});
  EXPECT_EQ(Drawing(canvas),
            (std::vector<std::string>{"...#..##...", "..##..#....", ".#.#..#....", "#..#..#....",
                                      "#####.#....", "...#..#....", "...#..##...", "..........."}));
  EXPECT_EQ(Canvas::TextWidth(""), 0);
}

}  // namespace
}  // namespace tidemark
