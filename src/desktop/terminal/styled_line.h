// One line of the terminal: texts, each with the role it plays. Roles become colours where there
// are colours, and nothing elsewhere.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tidemark {

enum class Style { kPlain, kStrong, kFaint, kChosen, kGood, kNotice, kWarning, kBad, kAlarm };

class Line {
 public:
  Line() = default;
  explicit Line(std::string_view text, Style style = Style::kPlain) { Add(text, style); }

  // The text is made displayable.
  Line& Add(std::string_view text, Style style = Style::kPlain);
  // Blanks up to that column, if it lies further right.
  Line& PadTo(int column);
  void Append(const Line& other);

  int Width() const { return width_; }
  bool IsEmpty() const { return width_ == 0; }

  // At most `width` columns wide; without trailing blanks and line end.
  std::string Paint(int width, bool color) const;

 private:
  struct Span {
    std::string text;
    Style style;
  };
  std::vector<Span> spans_;
  int width_ = 0;
};

using Lines = std::vector<Line>;

// The content in a frame under a title, at most `width` columns wide.
Lines Boxed(std::string_view title, const Lines& content, int width);

}  // namespace tidemark
