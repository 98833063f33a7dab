#include "desktop/win32/gdi_text_painter.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tidemark {
namespace {

constexpr Pixel kWhite = 0xFFFFFF;
constexpr Font kPlain{};

// How many pixels inside (or outside) the rectangle are no longer white.
int Painted(const Canvas& canvas, const Rect& rect, bool inside) {
  int count = 0;
  for (int y = 0; y < canvas.Height(); ++y) {
    for (int x = 0; x < canvas.Width(); ++x) {
      const bool in = x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
      if (in == inside && canvas.GetPixel(x, y) != kWhite) ++count;
    }
  }
  return count;
}

TEST(GdiTextPainter, MeasuresTextAndPaintsItWithinClipAndCanvas) {
  Resources resources("");
  const GdiTextPainter painter(resources);
  const int width = painter.Width("Scanning", kPlain);
  EXPECT_GT(width, 20);
  // One character, though two bytes.
  EXPECT_LT(painter.Width("\xC3\xBC", kPlain), 2 * painter.Width("u", kPlain));
  const Font large{.tenths_of_points = 300, .bold = true};
  Canvas canvas(120, 60);
  const Rect clip{20, 10, 50, 40};
  painter.Paint(canvas, 5, 0, "MMMMMMMM", large, 0xCC2010, clip);
  EXPECT_GT(Painted(canvas, clip, true), 50);
  EXPECT_EQ(Painted(canvas, clip, false), 0);
  EXPECT_NE(std::find(canvas.Pixels().begin(), canvas.Pixels().end(), Pixel{0xCC2010}),
            canvas.Pixels().end());

  // Bytes that are no text, and places beside the canvas, do no harm.
  painter.Paint(canvas, -40, -20, "\xFF\xFE\xC3", large, 0, canvas.Area());
  resources.SetDotsPerInch(192);
  EXPECT_NEAR(painter.Width("Scanning", kPlain), 2 * width, width / 2);
}

}  // namespace
}  // namespace tidemark
