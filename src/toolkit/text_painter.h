// Text on a Canvas. The small built-in face serves where there is no screen; a front end with real
// fonts brings its own painter.
#pragma once

#include <string_view>

#include "toolkit/canvas.h"
#include "toolkit/font.h"

namespace tidemark {

class TextPainter {
 public:
  virtual ~TextPainter() = default;
  // In pixels, for the painter's display.
  virtual int Width(std::string_view text, const Font& font) const = 0;
  virtual int Height(const Font& font) const = 0;
  // One line; x and y are its left top corner. The background stays, and nothing is painted outside
  // the clip.
  virtual void Paint(Canvas& canvas, int x, int y, std::string_view text, const Font& font,
                     Pixel color, const Rect& clip) const = 0;
};

// The canvas's own face, 8 pixels high whatever the font says; bold is painted twice.
const TextPainter& SmallFontPainter();

}  // namespace tidemark
