#include "toolkit/canvas.h"

#include <algorithm>
#include <cstdlib>

#include "platform/unicode.h"
#include "toolkit/small_font.h"

namespace tidemark {
namespace {

Rect Intersection(const Rect& a, const Rect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

}  // namespace

Canvas::Canvas(int width, int height)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), 0xFFFFFF) {}

Rect Canvas::Clip(const Rect& rect) const { return Intersection(rect, Area()); }

Pixel Canvas::GetPixel(int x, int y) const {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return 0;
  return pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                 static_cast<std::size_t>(x)];
}

void Canvas::SetPixel(int x, int y, Pixel color) {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
  At(x, y) = color;
}

void Canvas::FillRect(const Rect& rect, Pixel color) {
  const Rect area = Clip(rect);
  if (area.Width() <= 0) return;
  for (int y = area.top; y < area.bottom; ++y) {
    std::fill_n(&At(area.left, y), area.Width(), color);
  }
}

void Canvas::Line(int from_x, int from_y, int to_x, int to_y, Pixel color) {
  if (from_y == to_y) {
    const int left = from_x < to_x ? from_x : to_x + 1;
    FillRect({left, from_y, left + std::abs(to_x - from_x), from_y + 1}, color);
    return;
  }
  const int step_x = from_x < to_x ? 1 : -1;
  const int step_y = from_y < to_y ? 1 : -1;
  const int width = std::abs(to_x - from_x);
  const int height = std::abs(to_y - from_y);
  int error = width - height;
  for (int x = from_x, y = from_y; x != to_x || y != to_y;) {
    SetPixel(x, y, color);
    const int twice = 2 * error;
    if (twice > -height) {
      error -= height;
      x += step_x;
    }
    if (twice < width) {
      error += width;
      y += step_y;
    }
  }
}

void Canvas::Frame(const Rect& rect, Pixel top_left, Pixel bottom_right) {
  FillRect({rect.left, rect.top, rect.right, rect.top + 1}, top_left);
  FillRect({rect.left, rect.top, rect.left + 1, rect.bottom}, top_left);
  FillRect({rect.left, rect.bottom - 1, rect.right, rect.bottom}, bottom_right);
  FillRect({rect.right - 1, rect.top, rect.right, rect.bottom}, bottom_right);
}

void Canvas::VerticalGradient(const Rect& rect, Pixel top, Pixel bottom) {
  const Rect area = Clip(rect);
  for (int y = area.top; y < area.bottom; ++y) {
    FillRect({area.left, y, area.right, y + 1},
             MixColors(top, bottom, y - rect.top, rect.Height() - 1));
  }
}

void Canvas::HorizontalGradient(const Rect& rect, Pixel left, Pixel right) {
  const Rect area = Clip(rect);
  for (int x = area.left; x < area.right; ++x) {
    FillRect({x, area.top, x + 1, area.bottom},
             MixColors(left, right, x - rect.left, rect.Width() - 1));
  }
}

void Canvas::Tile(const Canvas& source, const Rect& rect) {
  if (source.pixels_.empty()) return;
  const Rect area = Clip(rect);
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) {
      At(x, y) = source.GetPixel((x - rect.left) % source.width_, (y - rect.top) % source.height_);
    }
  }
}

void Canvas::PaintText(int x, int y, std::string_view text, Pixel color, const Rect& clip) {
  const Rect area = Clip(clip);
  for (const char character : text) {
    if (ContinuesCharacter(character)) continue;
    const Glyph& glyph = GlyphOf(character);
    for (int row = 0; row < kTextHeight; ++row) {
      for (int column = 0; column < kGlyphWidth; ++column) {
        const bool inside = x + column >= area.left && x + column < area.right &&
                            y + row >= area.top && y + row < area.bottom;
        if (inside && glyph.Has(column, row)) At(x + column, y + row) = color;
      }
    }
    x += kGlyphWidth + 1;
  }
}

int Canvas::TextWidth(std::string_view text) {
  const auto characters = text.size() - static_cast<std::size_t>(std::count_if(
                                            text.begin(), text.end(), ContinuesCharacter));
  return characters == 0 ? 0 : static_cast<int>(characters) * (kGlyphWidth + 1) - 1;
}

Pixel MixColors(Pixel from, Pixel to, int part, int whole) {
  if (whole <= 0) return from;
  Pixel mixed = 0;
  for (int shift = 0; shift <= 16; shift += 8) {
    const int a = static_cast<int>((from >> shift) & 0xFFU);
    const int b = static_cast<int>((to >> shift) & 0xFFU);
    mixed |= static_cast<Pixel>(a + (b - a) * part / whole) << shift;
  }
  return mixed;
}

}  // namespace tidemark
