// UTF-8 one character at a time, and from and to 16-bit text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tidemark {

// Stands for a byte that is no part of well-formed UTF-8.
constexpr char32_t kNoCharacter = 0xFFFFFFFF;

// The character at `position` (which lies inside the text); moves the position behind it. Where no
// well-formed character stands it moves by one byte and gives kNoCharacter.
char32_t NextCharacter(std::string_view text, std::size_t& position);

// The first `count` characters; characters, not bytes.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

// Whether the byte continues a character that another byte starts.
constexpr bool ContinuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Whether the text holds U+FFFD, the mark of a character that was lost on the way.
inline bool HasReplacementCharacter(std::string_view text) {
  return text.find("\xEF\xBF\xBD") != std::string_view::npos;
}

// A surrogate and a number beyond U+10FFFF become U+FFFD.
void AppendUtf8(std::string& text, char32_t character);

// Little-endian 16-bit text, without a byte order mark, from and to UTF-8. A lone surrogate and a
// trailing odd byte become U+FFFD on the way to UTF-8.
std::string Utf8FromUtf16(std::string_view bytes);
std::string Utf16FromUtf8(std::string_view utf8);

}  // namespace tidemark
