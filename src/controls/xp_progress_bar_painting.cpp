// The ten looks of the progress bar.
#include <algorithm>
#include <cmath>

#include "controls/xp_progress_bar.h"

namespace tidemark {
namespace {

constexpr Pixel kWhite = 0xFFFFFF;
constexpr Pixel kBlack = 0x000000;
constexpr Pixel kLightGrey = 0xC0C0C0;
constexpr Pixel kFrameDark = 0xBEBEBE;
constexpr Pixel kFrameLight = 0xEFEFEF;

constexpr int kOnBlackStyle = 6;

// In pixels at 96 dots per inch.
constexpr int kWideChunk = 6;
constexpr int kNarrowChunk = 2;
constexpr int kGap = 2;
constexpr int kFrameIndent = 3;
constexpr int kBevel = 2;

// Rounded half to even, and far outside every canvas where the number is.
int PixelPosition(double position) {
  return static_cast<int>(std::nearbyint(std::clamp(position, -1e6, 1e6)));
}

// Part percent of the length; not below 0.
int PartOf(int length, int percent) {
  return std::max(PixelPosition(length * (percent / 100.0)), 0);
}

// The rectangle of the chunks. It ends on the boundary of a chunk: on the right, or vertically at
// the top.
Rect ChunkRect(const Rect& work, int percent, bool horizontal, int step) {
  Rect bar = work;
  const double ratio = percent / 98.0;
  if (horizontal) {
    const int position = PixelPosition(work.left + work.Width() * ratio);
    bar.right = std::max(position - (position - bar.left) % step, bar.left);
  } else {
    const int position = PixelPosition(work.top + work.Height() * (1 - ratio));
    bar.top = std::min(position - (position - bar.top) % step, bar.bottom);
  }
  return bar;
}

// The shade of one line of a chunk bar: lightest in the middle, from where it falls by 40 a line,
// and soft along the edges, of which the frame covers two lines. Lines as of 96 dots per inch.
int ChunkShade(int line, int lines) {
  constexpr int kSoftLines = 3;
  const int middle = lines / 2;
  if (std::min(line, lines - 1 - line) < kSoftLines) return 150;
  const int shade = line <= middle ? 220 - 40 * (middle - line) : 200 - 40 * (line - middle - 1);
  return std::max(shade, 0);
}

struct ChunkMetrics {
  int chunk;
  int gap;
  int indent;
  int bevel_line;  // the outer line of the bevel
  int bevel;       // both
};

ChunkMetrics MetricsOf(const BarLook& look) {
  const Display& display = look.display;
  return {std::max(display.Scaled(look.scrolling == 0 ? kWideChunk : kNarrowChunk), 1),
          display.Scaled(kGap), display.Scaled(kFrameIndent), display.Scaled(kBevel / 2),
          display.Scaled(kBevel)};
}

void PaintChunkGradient(const BarLook& look, const Rect& bar, bool horizontal, Canvas& canvas) {
  const Pixel color = PixelOf(look.color);
  const int lines = horizontal ? bar.Height() : bar.Width();
  const int lines_at_96 = std::max(lines * 96 / look.display.dots_per_inch, 1);
  for (int line = 0; line < lines; ++line) {
    const Pixel shade = ShadeColor(color, ChunkShade(line * lines_at_96 / lines, lines_at_96));
    canvas.FillRect(horizontal ? Rect{bar.left, bar.top + line, bar.right, bar.top + line + 1}
                               : Rect{bar.left + line, bar.top, bar.left + line + 1, bar.bottom},
                    shade);
  }
}

void PaintSeparators(const Rect& bar, const ChunkMetrics& metrics, bool horizontal,
                     Canvas& canvas) {
  const int step = metrics.chunk + metrics.gap;
  if (horizontal) {
    const int end = std::min(bar.right, canvas.Width());
    for (int x = bar.left + metrics.chunk; x < end; x += step) {
      canvas.FillRect({x, bar.top, x + metrics.gap, bar.bottom}, kWhite);
    }
  } else {
    const int end = std::max(bar.top, 0);
    for (int y = bar.bottom - metrics.chunk; y > end; y -= step) {
      canvas.FillRect({bar.left, y - metrics.gap, bar.right, y}, kWhite);
    }
  }
}

// Two lines wide: dark outside on the top and on the left, light elsewhere.
void PaintBevel(const Rect& area, const ChunkMetrics& metrics, Canvas& canvas) {
  const int right = area.right - 1;
  const int bottom = area.bottom - 1;
  for (int inset = metrics.bevel - 1; inset >= 0; --inset) {
    const Pixel top_left = inset < metrics.bevel_line ? kFrameDark : kFrameLight;
    canvas.Line(right - inset, inset, right - inset, area.bottom, kFrameLight);
    canvas.Line(inset, bottom - inset, area.right, bottom - inset, kFrameLight);
    canvas.Line(inset, inset, area.right, inset, top_left);
    canvas.Line(inset, inset, inset, area.bottom, top_left);
  }
}

void PaintChunks(const BarLook& look, Canvas& canvas) {
  const bool horizontal = look.orientation == 0;
  const ChunkMetrics metrics = MetricsOf(look);
  Rect work = canvas.Area();
  work.left += metrics.indent;
  const Rect bar = ChunkRect(work, look.percent, horizontal, metrics.chunk + metrics.gap);
  PaintChunkGradient(look, bar, horizontal, canvas);
  if (look.scrolling == 0) PaintSeparators(bar, metrics, horizontal, canvas);
  work.left -= metrics.indent;
  PaintBevel(work, metrics, canvas);
}

void PaintShades(const BarLook& look, Canvas& canvas) {
  const Pixel color = PixelOf(look.color);
  canvas.VerticalGradient(canvas.Area(), ShadeColor(color, 100), color);
  canvas.FillRect({1, 1, PartOf(canvas.Width(), look.percent), canvas.Height() - 1},
                  ShadeColor(color, 180));
}

// The platform's DrawEdge with all four sides: edge is the sum of 1 or 2 (outer line raised or
// sunken) and 4 or 8 (inner line raised or sunken).
void PaintEdge(int edge, Canvas& canvas) {
  constexpr Pixel kHighlight = 0xFFFFFF;
  constexpr Pixel kLight = 0xE3E3E3;
  constexpr Pixel kShadow = 0xA0A0A0;
  constexpr Pixel kDarkShadow = 0x696969;
  const Rect area = canvas.Area();
  const Rect inner = {1, 1, area.right - 1, area.bottom - 1};
  if ((edge & 1) != 0) canvas.Frame(area, kLight, kDarkShadow);
  if ((edge & 2) != 0) canvas.Frame(area, kShadow, kHighlight);
  if ((edge & 4) != 0) canvas.Frame(inner, kHighlight, kShadow);
  if ((edge & 8) != 0) canvas.Frame(inner, kDarkShadow, kLight);
}

void PaintInEdge(const BarLook& look, Canvas& canvas) {
  PaintEdge(6, canvas);
  const Pixel color = PixelOf(look.color);
  canvas.VerticalGradient({2, 2, 2 + PartOf(canvas.Width() - 4, look.percent), canvas.Height() - 2},
                          ShadeColor(color, 140), ShadeColor(color, 200));
}

void PaintPattern(const BarLook& look, Canvas& canvas) {
  PaintEdge(2, canvas);
  if (!look.image) return;
  const int width = std::max(PixelPosition(canvas.Width() * (look.percent / 101.0)), 0);
  canvas.Tile(*look.image, {2, 2, 2 + width, canvas.Height() - 2});
}

// Where the bar of the styles with a one-pixel frame ends.
int FramedBarEnd(const BarLook& look, const Canvas& canvas) {
  return 1 + PartOf(canvas.Width() - 2, look.percent);
}

// Lines every eight pixels, by the platform's HS_ numbers: horizontal, vertical, falling, rising,
// cross, diagonal cross.
bool IsOnHatch(int style, int x, int y) {
  const bool horizontal = y % 8 == 0;
  const bool vertical = x % 8 == 0;
  const bool falling = (x - y) % 8 == 0;
  const bool rising = (x + y) % 8 == 0;
  switch (style) {
    case 0:
      return horizontal;
    case 1:
      return vertical;
    case 2:
      return falling;
    case 3:
      return rising;
    case 5:
      return falling || rising;
    default:
      return horizontal || vertical;
  }
}

void PaintHatch(const BarLook& look, Canvas& canvas) {
  const Pixel color = PixelOf(look.color);
  const int end = FramedBarEnd(look, canvas);
  canvas.FillRect({1, 1, end, canvas.Height() - 1}, ShadeColor(color, 190));
  for (int y = 1; y < canvas.Height() - 1; ++y) {
    for (int x = 1; x < end; ++x) {
      if (IsOnHatch(look.brush_style, x, y)) canvas.SetPixel(x, y, color);
    }
  }
  canvas.Frame(canvas.Area(), color, color);
}

// Styles 5, 6 and 9: a plain bar, a bar on black, a bar lit from above.
void PaintFramed(const BarLook& look, Canvas& canvas) {
  const Pixel color = PixelOf(look.color);
  const Rect bar = {1, 1, FramedBarEnd(look, canvas), canvas.Height() - 1};
  switch (look.scrolling) {
    case 5:
      canvas.FillRect(bar, color);
      break;
    case kOnBlackStyle:
      canvas.HorizontalGradient(bar, MixColors(kBlack, color, 1, 2), ShadeColor(color, 60));
      break;
    default: {
      const int middle = canvas.Height() / 2;
      canvas.FillRect({bar.left, bar.top, bar.right, middle}, MixColors(kBlack, color, 5, 6));
      canvas.FillRect({bar.left, middle, bar.right, bar.bottom}, MixColors(kBlack, color, 4, 6));
    }
  }
  const Pixel frame = look.scrolling == kOnBlackStyle ? kLightGrey : ShadeColor(color, 60);
  canvas.Frame(canvas.Area(), frame, frame);
}

void PaintTextOnce(const BarLook& look, Pixel color, const Rect& clip, Canvas& canvas) {
  const TextPainter& painter = *look.display.text_painter;
  const std::string text = BarText(look);
  const int x = (canvas.Width() - painter.Width(text, look.font)) / 2;
  const int y = (canvas.Height() - painter.Height(look.font)) / 2;
  painter.Paint(canvas, x, y, text, look.font, color, clip);
}

void PaintBarText(const BarLook& look, Canvas& canvas) {
  const Pixel color = look.scrolling == kOnBlackStyle ? kLightGrey : kBlack;
  const bool in_two_parts = look.scrolling == kOnBlackStyle || look.scrolling == 9;
  if (!in_two_parts) {
    PaintTextOnce(look, color, canvas.Area(), canvas);
    return;
  }
  const int end = FramedBarEnd(look, canvas);
  PaintTextOnce(look, kWhite, {0, 0, end, canvas.Height()}, canvas);
  PaintTextOnce(look, color, {end, 0, canvas.Width(), canvas.Height()}, canvas);
}

}  // namespace

Pixel ShadeColor(Pixel color, int factor) {
  Pixel shaded = 0;
  for (int shift = 0; shift <= 16; shift += 8) {
    const int channel = static_cast<int>((color >> shift) & 0xFFU);
    const int tint = std::min(channel * (255 - factor) / 255 + factor, 255);
    shaded |= static_cast<Pixel>(tint) << shift;
  }
  return shaded;
}

std::string BarText(const BarLook& look) {
  if (look.scrolling == 2) return "Searching..";
  return std::to_string(look.percent) + " %";
}

void PaintBar(const BarLook& look, Canvas& canvas) {
  canvas.FillRect(canvas.Area(), look.scrolling == kOnBlackStyle ? kBlack : kWhite);
  switch (look.scrolling) {
    case 0:
    case 1:
    case 2:
      PaintChunks(look, canvas);
      break;
    case 3:
      PaintShades(look, canvas);
      break;
    case 4:
      PaintInEdge(look, canvas);
      break;
    case 5:
    case kOnBlackStyle:
    case 9:
      PaintFramed(look, canvas);
      break;
    case 7:
      PaintHatch(look, canvas);
      break;
    case 8:
      PaintPattern(look, canvas);
      break;
    default:
      break;
  }
  if (look.show_text) PaintBarText(look, canvas);
}

}  // namespace tidemark
