// The door between the process's text (UTF-8) and 8-bit files that others read in the system's ANSI
// code page: the undo file, Ignorelst.ini, profile files.
#pragma once

#include <string>
#include <string_view>

namespace tidemark {

// A character that the code page lacks becomes what the system's default conversion makes of it: a
// near letter, or "?".
std::string ToSystemCodePage(std::string_view utf8);

// Every byte sequence gives some text; a byte that the code page does not define becomes what the
// system's default conversion makes of it.
std::string FromSystemCodePage(std::string_view bytes);

}  // namespace tidemark
