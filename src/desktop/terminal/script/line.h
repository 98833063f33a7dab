// One line of a printed page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tidemark {

class Line {
 public:
  Line() = default;
  explicit Line(std::string_view text) { Add(text); }

  // The text is made displayable.
  Line& Add(std::string_view text);
  // Blanks up to that column, if it lies further right.
  Line& PadTo(int column);
  void Append(const Line& other);

  int Width() const { return width_; }
  bool IsEmpty() const { return width_ == 0; }

  // At most `width` columns wide; without trailing blanks and line end.
  std::string Print(int width) const;

 private:
  std::string text_;
  int width_ = 0;
};

using Lines = std::vector<Line>;

// The content in a frame under a title, at most `width` columns wide.
Lines Boxed(std::string_view title, const Lines& content, int width);

}  // namespace tidemark
