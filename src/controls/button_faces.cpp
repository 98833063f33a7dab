// The built-in face artwork of the push button.
#include <array>

#include "controls/button_painting.h"

namespace tidemark {
namespace {

constexpr int kCellSize = 20;

struct FaceColors {
  Pixel border;
  Pixel ring;  // just inside the border
  Pixel top;
  Pixel bottom;
};

// By the numbers of ButtonFace.
constexpr std::array<FaceColors, kButtonFaces> kFaceColors = {{
    {0x7D929E, 0xFDFEFE, 0xFDFEFE, 0xE9F0F3},
    {0x155475, 0xA9C3CE, 0xCFE0E6, 0xCFE0E6},
    {0xC9D2D7, 0xF3F5F6, 0xF3F5F6, 0xF3F5F6},
    {0x14787C, 0x8FCCCB, 0xF3FBFB, 0xD7ECEC},
    {0x155475, 0x155475, 0xFDFEFE, 0xE9F0F3},
}};

void PaintCell(const FaceColors& colors, const Rect& cell, Canvas& canvas) {
  const Rect ring = {cell.left + 1, cell.top + 1, cell.right - 1, cell.bottom - 1};
  canvas.VerticalGradient(cell, colors.top, colors.bottom);
  canvas.Frame(ring, colors.ring, colors.ring);
  canvas.Frame(cell, colors.border, colors.border);
  const Pixel white = 0xFFFFFF;
  const Pixel soft = MixColors(colors.border, white, 1, 3);
  for (const int x : {cell.left, cell.right - 1}) {
    const int inward = x == cell.left ? 1 : -1;
    for (const int y : {cell.top, cell.bottom - 1}) {
      const int down = y == cell.top ? 1 : -1;
      canvas.SetPixel(x, y, white);
      canvas.SetPixel(x + inward, y, soft);
      canvas.SetPixel(x, y + down, soft);
      canvas.SetPixel(x + inward, y + down, MixColors(colors.border, colors.ring, 1, 2));
    }
  }
}

}  // namespace

const Bitmap& BuiltInButtonFaces() {
  static const Bitmap strip = [] {
    Canvas canvas(kCellSize * kButtonFaces, kCellSize);
    for (int face = 0; face < kButtonFaces; ++face) {
      const int left = face * kCellSize;
      PaintCell(kFaceColors[static_cast<std::size_t>(face)], {left, 0, left + kCellSize, kCellSize},
                canvas);
    }
    return BitmapOf(canvas);
  }();
  return strip;
}

}  // namespace tidemark
