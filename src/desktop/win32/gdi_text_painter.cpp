#include "desktop/win32/gdi_text_painter.h"

#include <algorithm>
#include <string>

#include "platform/windows/wide_text.h"

namespace tidemark {
namespace {

// A block of pixels of the canvas's own kind on which the platform can paint.
struct PixelBlock {
  PixelBlock(HDC context, int width, int height) {
    const BITMAPINFO info = CanvasFormat(width, height);
    void* memory = nullptr;
    bitmap.Reset(CreateDIBSection(context, &info, DIB_RGB_COLORS, &memory, nullptr, 0));
    pixels = static_cast<Pixel*>(memory);
  }
  UniqueBitmap bitmap;
  Pixel* pixels = nullptr;  // null when there is no memory for it
};

COLORREF PlatformColor(Pixel pixel) {
  return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

Rect Common(const Rect& first, const Rect& second) {
  return {std::max(first.left, second.left), std::max(first.top, second.top),
          std::min(first.right, second.right), std::min(first.bottom, second.bottom)};
}

// With the font of the context.
SIZE Extent(HDC context, const std::wstring& text) {
  SIZE size{};
  GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
  return size;
}

// Calls move(pixel of the block, x, y on the canvas) for each pixel of the area.
template <class Move>
void ForEachPixel(const PixelBlock& block, const Rect& area, Move move) {
  Pixel* pixel = block.pixels;
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) move(*pixel++, x, y);
  }
}

}  // namespace

GdiTextPainter::GdiTextPainter(Resources& resources)
    : resources_(resources), context_(CreateCompatibleDC(nullptr)) {
  SetBkMode(context_.Get(), TRANSPARENT);
}

HFONT GdiTextPainter::Smoothed(const Font& font) const {
  UniqueFont& made = fonts_[{resources_.DotsPerInch(), font.tenths_of_points, font.bold}];
  if (!made) {
    LOGFONTW description{};
    GetObjectW(resources_.FontOf(font), sizeof(description), &description);
    description.lfQuality = ANTIALIASED_QUALITY;
    made.Reset(CreateFontIndirectW(&description));
  }
  return made.Get();
}

int GdiTextPainter::Width(std::string_view text, const Font& font) const {
  const Selection selection(context_.Get(), Smoothed(font));
  return static_cast<int>(Extent(context_.Get(), Wide(text)).cx);
}

int GdiTextPainter::Height(const Font& font) const {
  const Selection selection(context_.Get(), Smoothed(font));
  TEXTMETRICW metrics{};
  GetTextMetricsW(context_.Get(), &metrics);
  return static_cast<int>(metrics.tmHeight);
}

void GdiTextPainter::Paint(Canvas& canvas, int x, int y, std::string_view text, const Font& font,
                           Pixel color, const Rect& clip) const {
  const HDC context = context_.Get();
  const std::wstring wide = Wide(text);
  const Selection font_selection(context, Smoothed(font));
  const SIZE size = Extent(context, wide);
  // Letters may reach a little out of their extent: half a line to either side.
  const int overhang = static_cast<int>(size.cy) / 2;
  const Rect line{x - overhang, y, x + static_cast<int>(size.cx) + overhang,
                  y + static_cast<int>(size.cy)};
  const Rect area = Common(Common(line, clip), canvas.Area());
  if (area.Width() <= 0 || area.Height() <= 0) return;

  const PixelBlock block(context, area.Width(), area.Height());
  if (block.pixels == nullptr) return;
  const Selection block_selection(context, block.bitmap.Get());
  ForEachPixel(block, area, [&canvas](Pixel& pixel, int at_x, int at_y) {
    pixel = canvas.GetPixel(at_x, at_y);
  });
  SetTextColor(context, PlatformColor(color));
  TextOutW(context, x - area.left, y - area.top, wide.c_str(), static_cast<int>(wide.size()));
  GdiFlush();
  ForEachPixel(block, area, [&canvas](Pixel& pixel, int at_x, int at_y) {
    canvas.SetPixel(at_x, at_y, pixel & 0xFFFFFF);
  });
}

}  // namespace tidemark
