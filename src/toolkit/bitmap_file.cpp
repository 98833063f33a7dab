#include "toolkit/bitmap_file.h"

#include <algorithm>

#include "platform/file_system_object.h"

namespace tidemark {
namespace {

// What the two headers at the start of a file say.
struct Headers {
  std::uint64_t pixels_at = 0;
  std::int64_t width = 0;
  std::int64_t height = 0;
  bool top_row_first = false;
  unsigned bytes_a_pixel = 0;

  std::uint64_t RowSize() const {  // rows are filled up to whole 32-bit words
    return (static_cast<std::uint64_t>(width) * bytes_a_pixel + 3) / 4 * 4;
  }
};

// Little-endian, of up to four bytes; 0 where the bytes end before.
std::uint32_t NumberAt(std::string_view bytes, std::uint64_t position, unsigned size) {
  if (position + size > bytes.size()) return 0;
  std::uint32_t number = 0;
  for (unsigned i = 0; i < size; ++i) {
    number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[position + i]))
              << (8 * i);
  }
  return number;
}

// Red, green and blue in the order of the plain 32-bit format.
bool HasPlainMasks(std::string_view bytes) {
  return NumberAt(bytes, 54, 4) == 0xFF0000 && NumberAt(bytes, 58, 4) == 0xFF00 &&
         NumberAt(bytes, 62, 4) == 0xFF;
}

std::optional<Headers> ReadHeaders(std::string_view bytes) {
  constexpr std::size_t kHeaderSize = 54;
  constexpr std::uint32_t kInfoHeaderSize = 40;
  constexpr std::uint32_t kNotCompressed = 0;
  constexpr std::uint32_t kBitFields = 3;
  if (bytes.size() < kHeaderSize || bytes.substr(0, 2) != "BM") return std::nullopt;
  if (NumberAt(bytes, 14, 4) < kInfoHeaderSize) return std::nullopt;

  Headers headers;
  headers.pixels_at = NumberAt(bytes, 10, 4);
  headers.width = static_cast<std::int32_t>(NumberAt(bytes, 18, 4));
  headers.height = static_cast<std::int32_t>(NumberAt(bytes, 22, 4));
  headers.top_row_first = headers.height < 0;
  if (headers.top_row_first) headers.height = -headers.height;
  const std::uint32_t bits = NumberAt(bytes, 28, 2);
  const std::uint32_t compression = NumberAt(bytes, 30, 4);
  headers.bytes_a_pixel = bits / 8;

  const bool plain = compression == kNotCompressed && (bits == 24 || bits == 32);
  const bool with_masks = compression == kBitFields && bits == 32 && HasPlainMasks(bytes);
  if (!plain && !with_masks) return std::nullopt;
  if (headers.width <= 0 || headers.height == 0) return std::nullopt;
  if (headers.pixels_at > bytes.size()) return std::nullopt;
  const std::uint64_t rows_there = (bytes.size() - headers.pixels_at) / headers.RowSize();
  if (rows_there < static_cast<std::uint64_t>(headers.height)) return std::nullopt;
  return headers;
}

}  // namespace

std::optional<Bitmap> ReadBitmap(std::string_view bytes) {
  const std::optional<Headers> headers = ReadHeaders(bytes);
  if (!headers) return std::nullopt;
  Bitmap bitmap{static_cast<int>(headers->width), static_cast<int>(headers->height), {}};
  bitmap.pixels.reserve(static_cast<std::size_t>(headers->width) *
                        static_cast<std::size_t>(headers->height));
  for (int y = 0; y < bitmap.height; ++y) {
    const int row = headers->top_row_first ? y : bitmap.height - 1 - y;
    std::uint64_t position = headers->pixels_at + static_cast<unsigned>(row) * headers->RowSize();
    for (int x = 0; x < bitmap.width; ++x, position += headers->bytes_a_pixel) {
      bitmap.pixels.push_back(NumberAt(bytes, position, headers->bytes_a_pixel));
    }
  }
  const bool has_alpha = std::any_of(bitmap.pixels.begin(), bitmap.pixels.end(),
                                     [](std::uint32_t pixel) { return pixel >> 24 != 0; });
  if (!has_alpha) {
    for (auto& pixel : bitmap.pixels) pixel |= 0xFF000000U;
  }
  return bitmap;
}

std::optional<Bitmap> LoadBitmapFile(const std::string& file) {
  const std::optional<std::string> bytes = FileSystemObject().ReadAll(file);
  return bytes ? ReadBitmap(*bytes) : std::nullopt;
}

}  // namespace tidemark
