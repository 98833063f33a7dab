// A place in a registry script that has been brought to UTF-8, with the few moves that reading its
// lines takes, and what such a reading throws.
#pragma once

#include <cstddef>
#include <string_view>

namespace tidemark {

enum class ScriptManner { kStrict, kLenient };

// Why a script can't be read on.
struct ScriptFault {
  const char* what;
};

class ScriptCursor {
 public:
  explicit ScriptCursor(std::string_view text) : text_(text) {}

  std::string_view text() const { return text_; }
  // In bytes from the start of the text.
  std::size_t position() const { return position_; }
  void MoveTo(std::size_t position) { position_ = position; }

  bool AtEnd() const { return position_ >= text_.size(); }
  std::string_view Rest() const { return text_.substr(position_); }
  // NUL at the end, too.
  char Peek() const { return position_ < text_.size() ? text_[position_] : '\0'; }
  void Advance(std::size_t bytes = 1) { position_ += bytes; }

  bool Takes(std::string_view word) {
    if (!Rest().starts_with(word)) return false;
    position_ += word.size();
    return true;
  }

  void SkipBlanks() {
    while (Peek() == ' ' || Peek() == '\t') ++position_;
  }

  // Without its line end.
  std::string_view RestOfLine() const {
    std::string_view line = Rest();
    line = line.substr(0, line.find('\n'));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
  }

  void SkipLine() {
    const std::size_t end = text_.find('\n', position_);
    position_ = end == std::string_view::npos ? text_.size() : end + 1;
  }

 private:
  std::string_view text_;
  std::size_t position_ = 0;
};

}  // namespace tidemark
