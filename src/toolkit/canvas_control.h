// A control that paints itself on a Canvas. A front end tells it the display and its size in
// pixels, and shows the painting when its version has changed.
#pragma once

#include <cstdint>

#include "toolkit/canvas.h"
#include "toolkit/controls.h"
#include "toolkit/text_painter.h"

namespace tidemark {

// What a painting is made for.
struct Display {
  int dots_per_inch = 96;
  // Lives for as long as the painting is asked for.
  const TextPainter* text_painter = &SmallFontPainter();
  bool operator==(const Display&) const = default;

  // A length in pixels at 96 dots per inch, in pixels of this display, rounded.
  int Scaled(int pixels_at_96) const { return (pixels_at_96 * dots_per_inch + 48) / 96; }
};

class CanvasControl : public ClickControl {
 public:
  using ClickControl::ClickControl;

  virtual void SetDisplay(const Display& display) = 0;
  // The size of the painting, in pixels; below 0 counts as 0.
  virtual void SetSize(int width, int height) = 0;
  // The control as it is now. A set of a property only marks the painting, this call paints.
  virtual const Canvas& Painting() = 0;
  // Rises with every repaint that can show something new.
  virtual std::uint64_t PaintingVersion() const = 0;
};

}  // namespace tidemark
