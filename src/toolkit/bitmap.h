// A picture in memory, with transparency: what is read from a picture file and painted on a Canvas.
#pragma once

#include <cstdint>
#include <vector>

#include "toolkit/canvas.h"

namespace tidemark {

struct Bitmap {
  int width = 0;
  int height = 0;
  // 0xAARRGGBB, width times height of them, top row first; AA is 0 where nothing is seen of the
  // pixel and 0xFF where nothing is seen through it.
  std::vector<std::uint32_t> pixels;

  bool empty() const { return pixels.empty(); }
  Rect Area() const { return {0, 0, width, height}; }
  bool operator==(const Bitmap&) const = default;
};

// The same picture, with nothing transparent.
Bitmap BitmapOf(const Canvas& canvas);

// Paints the part of the bitmap over `area`, stretched smoothly and blended into what is there; at
// its own size every pixel comes out as it is. Nothing is painted of a part that is empty or not
// wholly inside the bitmap.
void PaintBitmap(const Bitmap& bitmap, const Rect& part, const Rect& area, Canvas& canvas);

}  // namespace tidemark
