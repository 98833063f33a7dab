// The text of a profile file: sections in brackets, with lines "key=value". What is not changed
// stays as it is, comments, blank lines and lines that mean nothing included.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::hosted {

class ProfileText {
 public:
  explicit ProfileText(std::string text) : text_(std::move(text)) {}

  const std::string& text() const { return text_; }

  // Names ignore case and blanks at their ends; the first of several is meant. The empty section is
  // what stands before the first one. A value has no blanks at its ends.
  std::optional<std::string_view> Value(std::string_view section, std::string_view key) const;
  std::vector<std::string_view> Sections() const;
  // Of the lines with a "="; no value when there is no such section.
  std::optional<std::vector<std::string_view>> Keys(std::string_view section) const;

  // A section that is not there is made at the end of the text, a key at the end of its section.
  void Set(std::string_view section, std::string_view key, std::string_view value);
  void Remove(std::string_view section, std::string_view key);
  void RemoveSection(std::string_view section);

 private:
  struct Line;
  struct Range {
    std::size_t header = 0;  // where its header begins, or its first line
    std::size_t first = 0;   // behind the header
    std::size_t end = 0;
  };

  Line LineAt(std::size_t start) const;
  std::optional<Range> Find(std::string_view section) const;
  std::optional<Line> Find(const Range& range, std::string_view key) const;
  void InsertLine(std::size_t position, const std::string& line);

  std::string text_;
};

}  // namespace tidemark::hosted
