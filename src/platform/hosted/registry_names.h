// Names and texts of the registry: comparing names as the platform sorts them, and converting
// between the 8-bit text (UTF-8) in which the store keeps them and the 16-bit text of files and of
// the limits. A lone surrogate is kept as its three bytes, so that a text comes back from the store
// as it was.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tidemark::hosted {

// In 16-bit code units.
inline constexpr std::size_t kLongestKeyName = 256;
inline constexpr std::size_t kLongestValueName = 16383;

// Negative, 0, positive, in the order of the capitals' 16-bit code units.
int CompareNames(std::string_view left, std::string_view right);
bool SameName(std::string_view left, std::string_view right);
// Equal for names that differ in case alone.
std::uint32_t HashName(std::string_view name);

bool IsAscii(std::string_view text);
// In 16-bit code units.
std::size_t Utf16Length(std::string_view text);
// What the platform makes of text that comes in by an 8-bit call: a byte that is no UTF-8 is
// U+FFFD.
std::string MendText(std::string_view text);

// Little-endian bytes; an odd byte at the end is left out.
void AppendFromUtf16(std::string_view bytes, std::string& text);
void AppendAsUtf16(std::string_view text, std::string& bytes);

}  // namespace tidemark::hosted
