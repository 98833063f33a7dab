// The platform's simple case mapping, one character to one character, independent of the locale: by
// it registry keys and file names are compared and sorted, and texts are put in capitals.
#pragma once

#include <string>
#include <string_view>

namespace tidemark {

char32_t UpperCase(char32_t character);
char32_t LowerCase(char32_t character);

// UTF-8 texts; bytes that are no UTF-8 stay as they are.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

// Negative, 0, positive: the order of the capitals' 16-bit code units.
int CompareIgnoringCase(std::string_view left, std::string_view right);

}  // namespace tidemark
