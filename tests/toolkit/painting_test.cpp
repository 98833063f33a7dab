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

using link_bytes::Number;

// The two headers of a file.
std::string Headers(std::uint32_t width, std::uint32_t height, std::uint32_t bits) {
  return "BM" + std::string(8, '\0') + Number(54, 4) + Number(40, 4) + Number(width, 4) +
         Number(height, 4) + Number(1, 2) + Number(bits, 2) + std::string(24, '\0');
}

using Pixels = std::vector<std::uint32_t>;

TEST(BitmapFile, ReadsItsRowsFromTheLastOneAndNothingThatIsCut) {
  // Blue, green, red; a row of one pixel of 24 bits is filled up with a byte.
  const std::string rows = Headers(1, 2, 24) + "\x01\x02\x03.\x11\x12\x13.";
  const auto bitmap = ReadBitmap(rows);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->pixels, (Pixels{0xFF131211, 0xFF030201}));
  EXPECT_FALSE(ReadBitmap(rows.substr(0, rows.size() - 1)));
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
