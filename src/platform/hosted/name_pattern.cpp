#include "platform/hosted/name_pattern.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "platform/letter_case.h"
#include "platform/unicode.h"

namespace tidemark::hosted {
namespace {

// The file system's own wild cards; no name can hold these characters.
constexpr char32_t kAny = U'*';
constexpr char32_t kAnyToLastDot = U'<';
constexpr char32_t kOneOrEdge = U'>';  // one character, or none before a dot or the end
constexpr char32_t kDotOrEnd = U'"';

std::u32string Characters(std::string_view text) {
  std::u32string characters;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = position;
    const char32_t character = NextCharacter(text, position);
    characters += character != kNoCharacter
                      ? character
                      : 0x110000U + static_cast<unsigned char>(text[start]);  // only itself
  }
  return characters;
}

// Which symbols may come next, after the characters so far.
using States = std::vector<char>;

void TakeNothing(const std::u32string& symbols, bool at_end, bool at_dot, States& states) {
  for (std::size_t i = 0; i < symbols.size(); ++i) {
    if (states[i] == 0) continue;
    const char32_t symbol = symbols[i];
    const bool skips = symbol == kAny || symbol == kAnyToLastDot ||
                       (symbol == kOneOrEdge && (at_end || at_dot)) ||
                       (symbol == kDotOrEnd && at_end);
    if (skips) states[i + 1] = 1;
  }
}

States Take(const std::u32string& symbols, char32_t character, bool last_dot,
            const States& states) {
  States next(states.size());
  for (std::size_t i = 0; i < symbols.size(); ++i) {
    if (states[i] == 0) continue;
    const char32_t symbol = symbols[i];
    if (symbol == kAny || (symbol == kAnyToLastDot && !last_dot)) {
      next[i] = 1;
    } else if (symbol == character || (symbol == kOneOrEdge && character != U'.') ||
               (symbol == kDotOrEnd && character == U'.')) {
      next[i + 1] = 1;
    }
  }
  return next;
}

// One pattern without ";", from its first character on.
bool Fits(std::string_view name, std::string_view pattern) {
  std::size_t at_name = 0;
  std::size_t at_pattern = 0;
  // Where to go on when what follows the last "*" does not fit.
  std::size_t retry_name = 0;
  std::size_t retry_pattern = std::string_view::npos;
  while (at_name < name.size()) {
    if (at_pattern < pattern.size() && pattern[at_pattern] == '*') {
      retry_pattern = ++at_pattern;
      retry_name = at_name;
      continue;
    }
    if (at_pattern < pattern.size()) {
      const std::size_t name_start = at_name;
      const bool any = pattern[at_pattern] == '?';
      const char32_t wanted = NextCharacter(pattern, at_pattern);
      const char32_t found = NextCharacter(name, at_name);
      if (any || (found != kNoCharacter && UpperCase(wanted) == UpperCase(found)) ||
          (found == wanted && name[name_start] == pattern[at_pattern - 1])) {
        continue;
      }
    }
    if (retry_pattern == std::string_view::npos) return false;
    NextCharacter(name, retry_name);
    at_name = retry_name;
    at_pattern = retry_pattern;
  }
  return pattern.find_first_not_of('*', at_pattern) == std::string_view::npos;
}

}  // namespace

SearchPattern::SearchPattern(std::string_view pattern) {
  const auto end = pattern.find_last_not_of(" .");
  const std::string_view kept = pattern.substr(0, end == std::string_view::npos ? 0 : end + 1);
  const bool dot_cut = kept.size() < pattern.size() && pattern[kept.size()] == '.';
  if (kept == "*.*") {
    symbols_ = kAny;
    return;
  }
  symbols_ = Characters(UpperCase(kept));
  for (std::size_t i = 0; i < symbols_.size(); ++i) {
    const bool last = i + 1 == symbols_.size();
    const char32_t next = last ? char32_t{0} : symbols_[i + 1];
    if (symbols_[i] == U'?') {
      symbols_[i] = kOneOrEdge;
    } else if (symbols_[i] == U'.' && (next == U'?' || next == U'*')) {
      symbols_[i] = kDotOrEnd;
    } else if (symbols_[i] == U'*' && (next == U'.' || (last && dot_cut))) {
      symbols_[i] = kAnyToLastDot;
    }
  }
}

bool SearchPattern::Matches(std::string_view upper_name) const {
  if (symbols_.size() == 1 && symbols_[0] == kAny) return true;
  const std::u32string name = Characters(upper_name);
  const std::size_t last_dot = name.rfind(U'.');
  States states(symbols_.size() + 1);
  states[0] = 1;
  for (std::size_t i = 0; i < name.size(); ++i) {
    TakeNothing(symbols_, false, name[i] == U'.', states);
    states = Take(symbols_, name[i], i == last_dot, states);
  }
  TakeNothing(symbols_, true, false, states);
  return states.back() != 0;
}

bool HasWildCards(std::string_view name) {
  return name.find_first_of("*?") != std::string_view::npos;
}

bool FitsPatternList(std::string_view name, std::string_view patterns) {
  if (patterns == "*.*") return true;
  while (!patterns.empty()) {
    const auto end = patterns.find(';');
    std::string_view pattern = patterns.substr(0, end);
    pattern.remove_prefix(std::min(pattern.find_first_not_of(' '), pattern.size()));
    if (Fits(name, pattern)) return true;
    patterns.remove_prefix(end == std::string_view::npos ? patterns.size() : end + 1);
  }
  return false;
}

}  // namespace tidemark::hosted
