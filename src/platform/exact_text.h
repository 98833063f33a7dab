// Between the 16-bit text of the registry and of its files, and 8-bit text (UTF-8), with nothing
// lost: a lone surrogate is kept as its three bytes, so that every text comes back as it was.
// unicode.h makes well-formed text, for people.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tidemark {

bool IsAscii(std::string_view text);
// In 16-bit code units.
std::size_t Utf16Length(std::string_view text);
// What the platform makes of text that comes in by an 8-bit call: a byte that is no UTF-8 is
// U+FFFD.
std::string MendText(std::string_view text);

// Little-endian bytes; an odd byte at the end is left out.
void AppendFromUtf16(std::string_view bytes, std::string& text);
void AppendAsUtf16(std::string_view text, std::string& bytes);

}  // namespace tidemark
