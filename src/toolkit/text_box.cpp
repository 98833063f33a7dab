#include "toolkit/text_box.h"

#include <algorithm>
#include <utility>

#include "platform/unicode.h"

namespace tidemark {
namespace {

struct Range {
  int begin;
  int end;
};

// The character of which the position is an inner byte; otherwise from the position to itself.
Range CharacterAround(std::string_view text, int position) {
  constexpr int kMostBytesBefore = 3;
  for (int begin = position - 1; begin >= std::max(position - kMostBytesBefore, 0); --begin) {
    auto end = static_cast<std::size_t>(begin);
    const char32_t character = NextCharacter(text, end);
    if (character != kNoCharacter && end > static_cast<std::size_t>(position)) {
      return {begin, static_cast<int>(end)};
    }
  }
  return {position, position};
}

}  // namespace

void TextBox::Replace(tidemark::Text text, int start) {
  const bool changed = !(text == text_);
  text_ = std::move(text);
  SetSelStart(start);
  if (changed) Changed();
}

void TextBox::SetText(tidemark::Text text) {
  if (!(text == text_)) Replace(std::move(text), 0);
}

void TextBox::SetSelStart(int start) {
  sel_start_ = CharacterAround(text_.View(), std::clamp(start, 0, Size())).begin;
  sel_length_ = 0;
}

void TextBox::SetSelLength(int length) {
  const int end = sel_start_ + std::clamp(length, 0, Size() - sel_start_);
  sel_length_ = CharacterAround(text_.View(), end).end - sel_start_;
}

std::string TextBox::SelText() const {
  return std::string(text_.View().substr(static_cast<std::size_t>(sel_start_),
                                         static_cast<std::size_t>(sel_length_)));
}

void TextBox::SetSelText(std::string_view text) {
  std::string changed = text_.String();
  changed.replace(static_cast<std::size_t>(sel_start_), static_cast<std::size_t>(sel_length_),
                  text);
  Replace(changed, sel_start_ + static_cast<int>(text.size()));
}

}  // namespace tidemark
