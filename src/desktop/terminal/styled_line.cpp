#include "desktop/terminal/styled_line.h"

#include <algorithm>

#include "desktop/terminal/display_text.h"

namespace tidemark {
namespace {

std::string_view Escape(Style style) {
  switch (style) {
    case Style::kPlain:
      return "";
    case Style::kStrong:
      return "\x1b[1m";
    case Style::kFaint:
      return "\x1b[2m";
    case Style::kChosen:
      return "\x1b[1;7m";
    case Style::kGood:
      return "\x1b[32m";
    case Style::kNotice:
      return "\x1b[36m";
    case Style::kWarning:
      return "\x1b[33m";
    case Style::kBad:
      return "\x1b[31m";
    case Style::kAlarm:
      return "\x1b[1;31m";
  }
  return "";
}

std::string Repeated(std::string_view text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

}  // namespace

Line& Line::Add(std::string_view text, Style style) {
  std::string displayable = Displayable(text);
  width_ += DisplayWidth(displayable);
  if (!displayable.empty()) spans_.push_back({std::move(displayable), style});
  return *this;
}

Line& Line::PadTo(int column) {
  if (column > width_) Add(std::string(static_cast<std::size_t>(column - width_), ' '));
  return *this;
}

void Line::Append(const Line& other) {
  spans_.insert(spans_.end(), other.spans_.begin(), other.spans_.end());
  width_ += other.width_;
}

std::string Line::Paint(int width, bool color) const {
  std::string result;
  for (const Span& span : spans_) {
    const std::string text = Fit(span.text, width);
    if (text.empty()) break;
    width -= DisplayWidth(text);
    const std::string_view escape = color ? Escape(span.style) : "";
    result += escape;
    result += text;
    if (!escape.empty()) result += "\x1b[0m";
  }
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
  if (!heading.empty()) top.Add(" ").Add(heading, Style::kStrong).Add(" ");
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
