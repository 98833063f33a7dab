// How many columns of a terminal a character takes.
#pragma once

namespace tidemark {

// 2 for a wide character, 0 for a combining one; a character that does not print counts as one
// column. The system's own measure where there is one: the libraries that draw on terminals use it.
int CharacterWidth(char32_t character);

}  // namespace tidemark
