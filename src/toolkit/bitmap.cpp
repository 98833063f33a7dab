#include "toolkit/bitmap.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tidemark {
namespace {

constexpr int kOne = 256;  // positions between pixels are counted in these

// Between which two pixels of a part a pixel of the area lies, and how far from the first one.
struct Sample {
  int first;
  int second;
  int share_of_second;  // of kOne
};

Sample SampleAt(int position, int length, int part_length) {
  const std::int64_t middle =
      (2 * std::int64_t{position} + 1) * part_length * kOne / (2 * std::int64_t{length}) - kOne / 2;
  const std::int64_t last = std::int64_t{part_length - 1} * kOne;
  const auto clamped = static_cast<int>(std::clamp<std::int64_t>(middle, 0, last));
  const int first = clamped / kOne;
  return {first, std::min(first + 1, part_length - 1), clamped % kOne};
}

// Alpha, and the colours weighted with it, so that the unseen colour of a transparent pixel doesn't
// bleed into its neighbours; all in units of 1 / kOne squared.
using Weighted = std::array<std::int64_t, 4>;

void AddWeighted(std::uint32_t pixel, int share, Weighted& sum) {
  const std::int64_t alpha = pixel >> 24;
  sum[0] += alpha * share;
  for (int channel = 0; channel < 3; ++channel) {
    sum[static_cast<std::size_t>(channel) + 1] +=
        static_cast<std::int64_t>(pixel >> (8 * channel) & 0xFFU) * alpha * share;
  }
}

Pixel Blend(const Weighted& sum, Pixel below) {
  constexpr std::int64_t kWhole = std::int64_t{255} * kOne * kOne;
  Pixel blended = 0;
  for (int channel = 0; channel < 3; ++channel) {
    const std::int64_t under = below >> (8 * channel) & 0xFFU;
    const std::int64_t over = sum[static_cast<std::size_t>(channel) + 1];
    const std::int64_t mixed = (over + under * (kWhole - sum[0]) + kWhole / 2) / kWhole;
    blended |= static_cast<Pixel>(mixed) << (8 * channel);
  }
  return blended;
}

bool IsInside(const Rect& part, const Bitmap& bitmap) {
  return part.left >= 0 && part.top >= 0 && part.right <= bitmap.width &&
         part.bottom <= bitmap.height && part.Width() > 0 && part.Height() > 0;
}

}  // namespace

Bitmap BitmapOf(const Canvas& canvas) {
  Bitmap bitmap{canvas.Width(), canvas.Height(), canvas.Pixels()};
  for (auto& pixel : bitmap.pixels) pixel |= 0xFF000000U;
  return bitmap;
}

void PaintBitmap(const Bitmap& bitmap, const Rect& part, const Rect& area, Canvas& canvas) {
  if (!IsInside(part, bitmap)) return;
  const auto pixel_at = [&](int x, int y) {
    return bitmap
        .pixels[static_cast<std::size_t>(part.top + y) * static_cast<std::size_t>(bitmap.width) +
                static_cast<std::size_t>(part.left + x)];
  };
  const int right = std::min(area.right, canvas.Width());
  const int bottom = std::min(area.bottom, canvas.Height());
  for (int y = std::max(area.top, 0); y < bottom; ++y) {
    const Sample row = SampleAt(y - area.top, area.Height(), part.Height());
    for (int x = std::max(area.left, 0); x < right; ++x) {
      const Sample column = SampleAt(x - area.left, area.Width(), part.Width());
      Weighted sum{};
      for (const auto& [source_y, share_y] : {std::pair{row.first, kOne - row.share_of_second},
                                              std::pair{row.second, row.share_of_second}}) {
        AddWeighted(pixel_at(column.first, source_y), share_y * (kOne - column.share_of_second),
                    sum);
        AddWeighted(pixel_at(column.second, source_y), share_y * column.share_of_second, sum);
      }
      canvas.SetPixel(x, y, Blend(sum, canvas.GetPixel(x, y)));
    }
  }
}

}  // namespace tidemark
