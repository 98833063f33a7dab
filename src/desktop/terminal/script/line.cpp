#include "desktop/terminal/script/line.h"

#include <algorithm>

#include "desktop/terminal/display_text.h"

namespace tidemark {
namespace {

std::string Repeated(std::string_view text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

}  // namespace

Line& Line::Add(std::string_view text) {
  const std::string displayable = Displayable(text);
  width_ += DisplayWidth(displayable);
  text_ += displayable;
  return *this;
}

Line& Line::PadTo(int column) {
  if (column > width_) Add(std::string(static_cast<std::size_t>(column - width_), ' '));
  return *this;
}

void Line::Append(const Line& other) {
  text_ += other.text_;
  width_ += other.width_;
}

std::string Line::Print(int width) const {
  std::string result = Fit(text_, width);
  result.erase(result.find_last_not_of(' ') + 1);
  return result;
}

Lines Boxed(std::string_view title, const Lines& content, int width) {
  constexpr int kFrame = 4;
  constexpr int kIndent = 2;
  int inner = DisplayWidth(Displayable(title)) + 2;
  for (const Line& line : content) inner = std::max(inner, line.Width());
  inner = std::clamp(inner, 1, std::max(1, width - kFrame - 2 * kIndent));

  Lines box;
  const std::string indent(kIndent, ' ');
  const std::string heading = Fit(Displayable(title), inner - 1);
  Line& top = box.emplace_back(indent + "┌─");
  if (!heading.empty()) top.Add(" ").Add(heading).Add(" ");
  top.Add(Repeated("─", kIndent + inner + 3 - top.Width())).Add("┐");
  for (const Line& line : content) {
    Line& row = box.emplace_back(indent + "│ ");
    row.Append(line);
    row.PadTo(kIndent + 2 + inner).Add(" │");
  }
  box.emplace_back(indent).Add("└").Add(Repeated("─", inner + 2)).Add("┘");
  return box;
}

}  // namespace tidemark
