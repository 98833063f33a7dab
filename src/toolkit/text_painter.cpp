#include "toolkit/text_painter.h"

namespace tidemark {
namespace {

class SmallFont : public TextPainter {
 public:
  int Width(std::string_view text, const Font& font) const override {
    return text.empty() ? 0 : Canvas::TextWidth(text) + (font.bold ? 1 : 0);
  }
  int Height(const Font&) const override { return Canvas::kTextHeight; }
  void Paint(Canvas& canvas, int x, int y, std::string_view text, const Font& font, Pixel color,
             const Rect& clip) const override {
    canvas.PaintText(x, y, text, color, clip);
    if (font.bold) canvas.PaintText(x + 1, y, text, color, clip);
  }
};

}  // namespace

const TextPainter& SmallFontPainter() {
  static const SmallFont painter;
  return painter;
}

}  // namespace tidemark
