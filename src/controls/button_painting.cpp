#include "controls/button_painting.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "toolkit/access_key.h"

namespace tidemark {
namespace {

constexpr int kEdge = 3;  // corners and edges of a cell, and of the button
constexpr Pixel kFocusColor = 0x404040;

// The face in nine pieces: corners and edges keep their size, the middle is stretched.
void PaintFacePieces(const Bitmap& faces, const Rect& cell, int edge, Canvas& canvas) {
  const std::array from_x = {cell.left, cell.left + kEdge, cell.right - kEdge, cell.right};
  const std::array from_y = {cell.top, cell.top + kEdge, cell.bottom - kEdge, cell.bottom};
  const auto stops = [edge](int length) {
    const int first = std::min(edge, length / 2);
    return std::array{0, first, length - first, length};
  };
  const std::array to_x = stops(canvas.Width());
  const std::array to_y = stops(canvas.Height());
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) {
      PaintBitmap(faces, {from_x[column], from_y[row], from_x[column + 1], from_y[row + 1]},
                  {to_x[column], to_y[row], to_x[column + 1], to_y[row + 1]}, canvas);
    }
  }
}

void PaintGlyph(const ButtonLook& look, Canvas& canvas) {
  constexpr int kLarge = 32;
  constexpr int kSmall = 16;
  const int size = look.picture.height < kLarge ? kSmall : kLarge;
  const int left = look.display.Scaled(kEdge);
  const int top = canvas.Height() / 2 - look.display.Scaled(size / 2);
  const int scaled = look.display.Scaled(size);
  PaintBitmap(look.picture, look.picture.Area(), {left, top, left + scaled, top + scaled}, canvas);
}

void PaintCaption(const ButtonLook& look, Canvas& canvas) {
  const TextPainter& painter = *look.display.text_painter;
  const ShownCaption shown = ShowCaption(look.caption.View());
  const Rect place = CaptionPlace(look, canvas.Width(), canvas.Height());
  const Pixel color = PixelOf(look.caption_color);
  painter.Paint(canvas, place.left, place.top, shown.text, look.font, color, canvas.Area());
  if (shown.key_size == 0) return;
  const std::string_view text = shown.text;
  const int key_width = painter.Width(text.substr(shown.key, shown.key_size), look.font);
  const int key_right =
      place.left + painter.Width(text.substr(0, shown.key + shown.key_size), look.font);
  const int top = place.bottom - std::max(place.Height() / 8, 1);  // in the text's lowest rows
  const int thickness = std::max(place.Height() / 13, 1);
  canvas.FillRect({key_right - key_width, top, key_right, top + thickness}, color);
}

void PaintFocus(int inset, Canvas& canvas) {
  const Rect frame = {inset, inset, canvas.Width() - inset, canvas.Height() - inset};
  for (int y = frame.top; y < frame.bottom; ++y) {
    for (int x = frame.left; x < frame.right; ++x) {
      const bool on_frame =
          x == frame.left || x == frame.right - 1 || y == frame.top || y == frame.bottom - 1;
      if (on_frame && (x + y) % 2 == 0) canvas.SetPixel(x, y, kFocusColor);
    }
  }
}

}  // namespace

bool IsFaceStrip(const Bitmap& bitmap) {
  return bitmap.width % kButtonFaces == 0 && bitmap.width / kButtonFaces > 2 * kEdge &&
         bitmap.height > 2 * kEdge;
}

Rect CaptionPlace(const ButtonLook& look, int width, int height) {
  constexpr int kGlyphEnd = 32;
  const TextPainter& painter = *look.display.text_painter;
  const int text_width = painter.Width(ShowCaption(look.caption.View()).text, look.font);
  const int text_height = painter.Height(look.font);
  int left = (width - text_width) / 2;
  if (!look.picture.empty() && left <= look.display.Scaled(kGlyphEnd)) {
    left = look.display.Scaled(kGlyphEnd + 1);
  }
  const int top = (height - text_height) / 2;
  return {left, top, left + text_width, top + text_height};
}

void PaintButton(const ButtonLook& look, Canvas& canvas) {
  canvas.FillRect(canvas.Area(), 0xFFFFFF);
  const Bitmap& faces = look.faces.empty() ? BuiltInButtonFaces() : look.faces;
  const int cell_width = faces.width / kButtonFaces;
  const int cell_left = static_cast<int>(look.face) * cell_width;
  const int edge = look.display.Scaled(kEdge);
  PaintFacePieces(faces, {cell_left, 0, cell_left + cell_width, faces.height}, edge, canvas);
  if (!look.picture.empty()) PaintGlyph(look, canvas);
  PaintCaption(look, canvas);
  if (look.focused && look.face != ButtonFace::kDisabled) PaintFocus(edge, canvas);
}

}  // namespace tidemark
