// Between the process's 8-bit text and the platform's 16-bit calls, for those places where the
// 8-bit calls fall short: the drawing of text, and what a person types.
#pragma once

#include <string>
#include <string_view>

namespace tidemark {

// Bytes that are no character become U+FFFD or "?", as the platform has it.
std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);

}  // namespace tidemark
