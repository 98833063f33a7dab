#include "platform/exact_text.h"

#include <cstdint>
#include <cstring>

namespace tidemark {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

unsigned char ByteAt(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

bool IsHighSurrogate(char32_t unit) { return (unit & 0xFFFFFC00U) == 0xD800; }
bool IsLowSurrogate(char32_t unit) { return (unit & 0xFFFFFC00U) == 0xDC00; }

struct Decoded {
  char32_t character;
  std::size_t size_bytes;
};

// UTF-8, with lone surrogates let through.
Decoded DecodeAt(std::string_view text, std::size_t position) {
  const unsigned char lead = ByteAt(text, position);
  if (lead < 0x80) return {lead, 1};
  std::size_t size = 0;
  char32_t character = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    size = 2;
    character = lead & 0x1FU;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    size = 3;
    character = lead & 0x0FU;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    size = 4;
    character = lead & 0x07U;
  }
  if (size == 0 || text.size() - position < size) return {kReplacement, 1};
  for (std::size_t i = 1; i < size; ++i) {
    const unsigned char next = ByteAt(text, position + i);
    if ((next & 0xC0U) != 0x80) return {kReplacement, 1};
    character = character << 6U | (next & 0x3FU);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kSmallest[size] || character > 0x10FFFF) return {kReplacement, 1};
  return {character, size};
}

void AppendUtf8(char32_t character, std::string& text) {
  const auto tail = [&](unsigned shift) {
    text += static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
  };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0U | character >> 6U);
    tail(0);
  } else if (character < 0x10000) {
    text += static_cast<char>(0xE0U | character >> 12U);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0U | character >> 18U);
    tail(12);
    tail(6);
    tail(0);
  }
}

char32_t UnitAt(std::string_view bytes, std::size_t position) {
  return static_cast<char32_t>(ByteAt(bytes, position) | ByteAt(bytes, position + 1) << 8U);
}

void AppendUnit(char32_t unit, std::string& bytes) {
  bytes += static_cast<char>(unit & 0xFFU);
  bytes += static_cast<char>(unit >> 8U);
}

// How many 16-bit units from `position` on are ASCII; looks at four units at a time.
std::size_t AsciiUnits(std::string_view bytes, std::size_t position) {
  const std::size_t first = position;
  for (; bytes.size() - position >= 8; position += 8) {
    std::uint64_t units = 0;
    std::memcpy(&units, bytes.data() + position, sizeof units);
    if ((units & 0xFF80FF80FF80FF80U) != 0) break;
  }
  while (position + 1 < bytes.size() && UnitAt(bytes, position) < 0x80) position += 2;
  return (position - first) / 2;
}

}  // namespace

bool IsAscii(std::string_view text) {
  std::size_t position = 0;
  for (; text.size() - position >= 8; position += 8) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text.data() + position, sizeof bytes);
    if ((bytes & 0x8080808080808080U) != 0) return false;
  }
  for (; position < text.size(); ++position) {
    if (ByteAt(text, position) >= 0x80) return false;
  }
  return true;
}

std::size_t Utf16Length(std::string_view text) {
  if (IsAscii(text)) return text.size();
  std::size_t units = 0;
  for (std::size_t i = 0; i < text.size();) {
    const Decoded decoded = DecodeAt(text, i);
    units += decoded.character >= 0x10000 ? 2 : 1;
    i += decoded.size_bytes;
  }
  return units;
}

std::string MendText(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  std::string mended;
  for (std::size_t i = 0; i < text.size();) {
    const Decoded decoded = DecodeAt(text, i);
    AppendUtf8(decoded.character, mended);
    i += decoded.size_bytes;
  }
  return mended;
}

void AppendFromUtf16(std::string_view bytes, std::string& text) {
  for (std::size_t i = 0; i + 1 < bytes.size();) {
    const std::size_t ascii = AsciiUnits(bytes, i);
    const std::size_t start = text.size();
    text.resize(start + ascii);
    const char* from = bytes.data() + i;
    char* to = text.data() + start;
    for (std::size_t unit = 0; unit < ascii; ++unit) to[unit] = from[2 * unit];
    i += 2 * ascii;
    if (i + 1 >= bytes.size()) break;
    char32_t character = UnitAt(bytes, i);
    i += 2;
    if (IsHighSurrogate(character) && i + 1 < bytes.size() && IsLowSurrogate(UnitAt(bytes, i))) {
      character = 0x10000 + ((character - 0xD800) << 10U) + (UnitAt(bytes, i) - 0xDC00);
      i += 2;
    }
    AppendUtf8(character, text);
  }
}

void AppendAsUtf16(std::string_view text, std::string& bytes) {
  for (std::size_t i = 0; i < text.size();) {
    const Decoded decoded = DecodeAt(text, i);
    i += decoded.size_bytes;
    if (decoded.character < 0x10000) {
      AppendUnit(decoded.character, bytes);
    } else {
      AppendUnit(0xD800 + ((decoded.character - 0x10000) >> 10U), bytes);
      AppendUnit(0xDC00 + (decoded.character & 0x3FFU), bytes);
    }
  }
}

}  // namespace tidemark
