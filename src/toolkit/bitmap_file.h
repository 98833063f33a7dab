// Reads picture files of the platform's bitmap format (".bmp", the BITMAPFILEHEADER and
// BITMAPINFOHEADER documents): 24 and 32 bits a pixel, not compressed, either row order.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "toolkit/bitmap.h"

namespace tidemark {

// The picture in the bytes of a file; nothing for another format, a damaged or a truncated file. A
// 32-bit picture whose alpha is 0 everywhere has none: it is opaque.
std::optional<Bitmap> ReadBitmap(std::string_view bytes);

// The same of a file; nothing also where it can't be read.
std::optional<Bitmap> LoadBitmapFile(const std::string& file);

}  // namespace tidemark
