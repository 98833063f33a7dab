// Canvases, and the pictures that are painted on them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/link_bytes.h"
#include "toolkit/bitmap_file.h"
#include "toolkit/canvas.h"

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
  EXPECT_EQ(Canvas(-1, 4).Pixels().size(), 0U);
}

TEST(Canvas, PaintsTextInsideItsClipOnly) {
  Canvas canvas(Canvas::TextWidth("4\xC3\xA4"), Canvas::kTextHeight);
  canvas.PaintText(0, 0, "4\xC3\xA4", 0, {0, 0, 8, 99});
  EXPECT_EQ(Drawing(canvas),
            (std::vector<std::string>{"...#..##...", "..##..#....", ".#.#..#....", "#..#..#....",
                                      "#####.#....", "...#..#....", "...#..##...", "..........."}));
  EXPECT_EQ(Canvas::TextWidth(""), 0);
}

using link_bytes::Number;

// The two headers of a file; `masks` stands between them and the pixels.
std::string Headers(int width, int height, int bits, int compression = 0,
                    const std::string& masks = {}) {
  const auto size = static_cast<std::uint32_t>(54 + masks.size());
  return "BM" + std::string(8, '\0') + Number(size, 4) + Number(40, 4) +
         Number(static_cast<std::uint32_t>(width), 4) +
         Number(static_cast<std::uint32_t>(height), 4) + Number(1, 2) +
         Number(static_cast<std::uint32_t>(bits), 2) +
         Number(static_cast<std::uint32_t>(compression), 4) + std::string(20, '\0') + masks;
}

using Pixels = std::vector<std::uint32_t>;

TEST(BitmapFile, ReadsTwentyFourAndThirtyTwoBitsInEitherRowOrder) {
  // Blue, green, red; a row of one pixel of 24 bits is filled up with a byte.
  const std::string two_rows_24 = Headers(1, 2, 24) + "\x01\x02\x03.\x11\x12\x13.";
  const std::string masks = Number(0xFF0000, 4) + Number(0xFF00, 4) + Number(0xFF, 4);
  const std::string one_row_32 = Number(0x80112233, 4) + Number(0x00445566, 4);
  const struct {
    std::string bytes;
    Pixels pixels;
  } cases[] = {
      {two_rows_24, {0xFF131211, 0xFF030201}},
      {Headers(1, -2, 24) + two_rows_24.substr(54), {0xFF030201, 0xFF131211}},
      {Headers(2, 1, 32) + one_row_32, {0x80112233, 0x00445566}},
      {Headers(2, 1, 32, 3, masks) + one_row_32, {0x80112233, 0x00445566}},
      {Headers(1, 1, 32) + Number(0x00445566, 4), {0xFF445566}},  // no alpha at all: opaque
  };
  for (const auto& c : cases) {
    const auto bitmap = ReadBitmap(c.bytes);
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(bitmap->pixels, c.pixels);
  }
}

TEST(BitmapFile, RefusesWhatIsNoSuchPicture) {
  const std::string pixels(64, 'x');
  const std::string cases[] = {
      "PNG" + Headers(1, 1, 24) + pixels,
      Headers(1, 1, 8) + pixels,
      Headers(1, 1, 24, 1) + pixels,
      Headers(1, 1, 32, 3, std::string(12, 'm')) + pixels,
      Headers(0, 1, 24) + pixels,
      Headers(5, 5, 24) + pixels,  // needs 80 bytes
      Headers(0x7FFFFFFF, 0x7FFFFFFF, 32) + pixels,
      Headers(1, static_cast<int>(0x80000000U), 32) + pixels,
  };
  for (const auto& bytes : cases) EXPECT_FALSE(ReadBitmap(bytes)) << testing::PrintToString(bytes);
  const std::string whole = Headers(3, 3, 24) + std::string(36, 'x');
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    EXPECT_EQ(ReadBitmap(std::string(whole, 0, size)).has_value(), size == whole.size()) << size;
  }
}

TEST(BitmapFile, PaintsItsPixelsBlendedAndStretched) {
  Bitmap bitmap{2, 1, {0xFFFF0000, 0x000000FF}};  // red, and a blue that nothing is seen of
  Canvas canvas(4, 1);
  PaintBitmap(bitmap, bitmap.Area(), {0, 0, 2, 1}, canvas);
  EXPECT_EQ(canvas.Pixels(), (Pixels{0xFF0000, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF}));
  PaintBitmap(bitmap, bitmap.Area(), {0, 0, 4, 1}, canvas);
  EXPECT_EQ(canvas.Pixels(), (Pixels{0xFF0000, 0xFF4040, 0xFFBFBF, 0xFFFFFF}));
  const auto before = canvas.Pixels();
  PaintBitmap(bitmap, {1, 0, 3, 1}, {0, 0, 4, 1}, canvas);  // a part that is not all there
  PaintBitmap(bitmap, bitmap.Area(), {9, -9, 30, -2}, canvas);
  EXPECT_EQ(canvas.Pixels(), before);
}

}  // namespace
}  // namespace tidemark
