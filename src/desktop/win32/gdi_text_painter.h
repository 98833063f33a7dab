// Text on a Canvas in the fonts of the system.
#pragma once

#include <map>
#include <string_view>
#include <tuple>

#include "desktop/win32/gdi_objects.h"
#include "desktop/win32/resources.h"
#include "toolkit/text_painter.h"

namespace tidemark {

// For the thread that made it; the resources outlive it.
class GdiTextPainter : public TextPainter {
 public:
  explicit GdiTextPainter(Resources& resources);

  int Width(std::string_view text, const Font& font) const override;
  int Height(const Font& font) const override;
  void Paint(Canvas& canvas, int x, int y, std::string_view text, const Font& font, Pixel color,
             const Rect& clip) const override;

 private:
  // The resources' font, but smoothed in shades of grey: the canvas's pixels need not be those of
  // the display, whose coloured stripes the other kind of smoothing relies on.
  HFONT Smoothed(const Font& font) const;

  Resources& resources_;
  UniqueMemoryContext context_;
  // By dots per inch, tenths of points, bold.
  mutable std::map<std::tuple<int, int, bool>, UniqueFont> fonts_;
};

}  // namespace tidemark
