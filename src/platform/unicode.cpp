#include "platform/unicode.h"

namespace tidemark {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

constexpr bool IsSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }

void AppendUnit(std::string& bytes, char32_t unit) {
  bytes += static_cast<char>(unit & 0xFF);
  bytes += static_cast<char>(unit >> 8 & 0xFF);
}

}  // namespace

char32_t NextCharacter(std::string_view text, std::size_t& position) {
  const auto first = static_cast<unsigned char>(text[position++]);
  if (first < 0x80) return first;
  if (first < 0xC2 || first > 0xF4) return kNoCharacter;
  const std::size_t more = first < 0xE0 ? 1U : first < 0xF0 ? 2U : 3U;
  if (text.size() - position < more) return kNoCharacter;
  char32_t character = first & (0x3FU >> more);
  for (std::size_t i = 0; i < more; ++i) {
    const char next = text[position + i];
    if (!ContinuesCharacter(next)) return kNoCharacter;
    character = character << 6 | (static_cast<unsigned char>(next) & 0x3FU);
  }
  constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
  if (character < kSmallest[more] || character > 0x10FFFF || IsSurrogate(character)) {
    return kNoCharacter;
  }
  position += more;
  return character;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; count > 0 && end < text.size(); --count) NextCharacter(text, end);
  return text.substr(0, end);
}

void AppendUtf8(std::string& text, char32_t character) {
  if (character > 0x10FFFF || IsSurrogate(character)) character = kReplacement;
  const auto tail = [&text, character](unsigned shift) {
    text += static_cast<char>(0x80 | (character >> shift & 0x3F));
  };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0 | character >> 6);
    tail(0);
  } else if (character < 0x10000) {
    text += static_cast<char>(0xE0 | character >> 12);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0 | character >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

std::string Utf8FromUtf16(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() / 2);
  const auto unit_at = [bytes](std::size_t i) -> char32_t {
    if (i + 1 >= bytes.size()) return kReplacement;
    return static_cast<unsigned char>(bytes[i]) |
           static_cast<char32_t>(static_cast<unsigned char>(bytes[i + 1])) << 8;
  };
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    char32_t unit = unit_at(i);
    if (unit >= 0xD800 && unit < 0xDC00) {
      const char32_t second = unit_at(i + 2);
      if (second >= 0xDC00 && second < 0xE000) {
        unit = 0x10000 + ((unit - 0xD800) << 10) + (second - 0xDC00);
        i += 2;
      }
    }
    AppendUtf8(text, unit);
  }
  return text;
}

std::string Utf16FromUtf8(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size() * 2);
  for (std::size_t position = 0; position < utf8.size();) {
    char32_t character = NextCharacter(utf8, position);
    if (character == kNoCharacter) character = kReplacement;
    if (character >= 0x10000) {
      AppendUnit(bytes, 0xD800 + ((character - 0x10000) >> 10));
      character = 0xDC00 + ((character - 0x10000) & 0x3FF);
    }
    AppendUnit(bytes, character);
  }
  return bytes;
}

}  // namespace tidemark
