#include "desktop/terminal/display_text.h"

#include <algorithm>
#include <array>

#include "platform/character_width.h"
#include "platform/unicode.h"

namespace tidemark {
namespace {

struct CharacterRange {
  char32_t first;
  char32_t last;
};

constexpr std::array<CharacterRange, 5> kSteering = {
    {{0x00, 0x1F}, {0x7F, 0x9F}, {0x200B, 0x200F}, {0x2028, 0x202E}, {0x2060, 0x206F}}};

bool Steers(char32_t character) {
  return std::any_of(kSteering.begin(), kSteering.end(), [character](const CharacterRange& range) {
    return range.first <= character && character <= range.last;
  });
}

// How many bytes of the text fill at most `width` columns.
std::size_t BytesThatFit(std::string_view text, int width) {
  std::size_t end = 0;
  for (std::size_t next = 0; next < text.size(); end = next) {
    width -= CharacterWidth(NextCharacter(text, next));
    if (width < 0) break;
  }
  return end;
}

void WrapParagraph(std::string_view text, int width, std::vector<std::string>& lines) {
  while (DisplayWidth(text) > width) {
    std::size_t end = BytesThatFit(text, width);
    if (end == 0) NextCharacter(text, end);  // a wide character in a narrow place
    const std::size_t blank = text.rfind(' ', end);
    std::size_t first_left_out = end;
    if (blank != std::string_view::npos && blank > 0) {
      end = blank;
      first_left_out = blank + 1;
    }
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(first_left_out);
    if (text.empty()) return;
  }
  lines.emplace_back(text);
}

}  // namespace

std::string Displayable(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = position;
    const char32_t character = NextCharacter(text, position);
    if (character == kNoCharacter) {
      result += "\uFFFD";
    } else if (Steers(character)) {
      result += "\u00B7";
    } else {
      result += text.substr(start, position - start);
    }
  }
  return result;
}

int DisplayWidth(std::string_view text) {
  int width = 0;
  for (std::size_t position = 0; position < text.size();) {
    width += CharacterWidth(NextCharacter(text, position));
  }
  return width;
}

std::string_view Cut(std::string_view text, int width) {
  return text.substr(0, BytesThatFit(text, width));
}

std::string Fit(std::string_view text, int width) {
  // No character is wider than two columns or takes less than a byte.
  if (text.size() <= static_cast<std::size_t>(std::max(width, 0)) || DisplayWidth(text) <= width) {
    return std::string(text);
  }
  if (width <= 0) return {};
  return std::string(text.substr(0, BytesThatFit(text, width - 1))) + "…";
}

std::string FitPath(std::string_view text, int width) {
  constexpr int kNarrow = 12;
  const bool fits = text.size() <= static_cast<std::size_t>(std::max(width, 0));
  if (fits || width < kNarrow || text.find('\\') == std::string_view::npos) return Fit(text, width);
  int left_out = DisplayWidth(text) - width;
  if (left_out <= 0) return std::string(text);
  const std::size_t head = BytesThatFit(text, width / 3);
  std::size_t tail = head;
  for (++left_out; left_out > 0;) left_out -= CharacterWidth(NextCharacter(text, tail));
  return std::string(text.substr(0, head)).append("…").append(text.substr(tail));
}

std::vector<std::string> Wrap(std::string_view text, int width) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view paragraph = text.substr(0, end);
    if (paragraph.ends_with('\r')) paragraph.remove_suffix(1);
    WrapParagraph(Displayable(paragraph), std::max(width, 1), lines);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace tidemark
