// Texts as a terminal shows them: made harmless, measured, cut and wrapped. Widths are in columns
// of the terminal; a wide character takes two, a combining one none.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tidemark {

// A registry may hold anything: control characters, which could steer the terminal, become a middle
// dot, bytes that are no UTF-8 the replacement character.
std::string Displayable(std::string_view text);

// Of a text that is displayable.
int DisplayWidth(std::string_view text);

// At most that wide.
std::string_view Cut(std::string_view text, int width);

// The same; what was longer ends in an ellipsis.
std::string Fit(std::string_view text, int width);

// The same, but a path is cut in its middle: what tells it from others stands at its end.
std::string FitPath(std::string_view text, int width);

// Lines of at most that width, broken at blanks where there are any, and at the text's own line
// ends. An empty text has no lines.
std::vector<std::string> Wrap(std::string_view text, int width);

}  // namespace tidemark
