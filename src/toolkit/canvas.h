// What the self-drawn controls paint on: a plain block of 32-bit pixels, 0x00RRGGBB, top row first.
// The front ends and the tests see the same pixels. All painting is clipped to the canvas.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "toolkit/rect.h"

namespace tidemark {

using Pixel = std::uint32_t;

class Canvas {
 public:
  Canvas() = default;
  // A size below 0 counts as 0. The pixels are white.
  Canvas(int width, int height);

  int Width() const { return width_; }
  int Height() const { return height_; }
  Rect Area() const { return {0, 0, width_, height_}; }
  // Width() times Height() pixels, row by row.
  const std::vector<Pixel>& Pixels() const { return pixels_; }

  // Black outside the canvas.
  Pixel GetPixel(int x, int y) const;
  void SetPixel(int x, int y, Pixel color);

  void FillRect(const Rect& rect, Pixel color);
  // From the first point up to, not including, the last one, as the platform draws lines.
  void Line(int from_x, int from_y, int to_x, int to_y, Pixel color);
  // A frame one pixel wide just inside the rectangle.
  void Frame(const Rect& rect, Pixel top_left, Pixel bottom_right);

  // The first row (column) of the rectangle has the first colour, the last one the second.
  void VerticalGradient(const Rect& rect, Pixel top, Pixel bottom);
  void HorizontalGradient(const Rect& rect, Pixel left, Pixel right);

  // Covers the rectangle with copies of another canvas, the first one in its left top corner.
  void Tile(const Canvas& source, const Rect& rect);

  // One line of text in the canvas's only face, 7 pixels high with one more for descenders; x and y
  // are its left top corner and the background stays. Nothing is painted outside the clip.
  // Characters beyond ASCII, and the few that the face lacks, show as a box.
  void PaintText(int x, int y, std::string_view text, Pixel color, const Rect& clip);
  static int TextWidth(std::string_view text);
  static constexpr int kTextHeight = 8;

 private:
  Rect Clip(const Rect& rect) const;
  Pixel& At(int x, int y) {
    return pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                   static_cast<std::size_t>(x)];
  }

  int width_ = 0;
  int height_ = 0;
  std::vector<Pixel> pixels_;
};

// The colour between two, part/whole of the way from the first to the second; 0 <= part <= whole,
// and a whole of 0 gives the first.
Pixel MixColors(Pixel from, Pixel to, int part, int whole);

}  // namespace tidemark
