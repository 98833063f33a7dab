#include "platform/hosted/profile_text.h"

#include "platform/letter_case.h"

namespace tidemark::hosted {
namespace {

constexpr std::string_view kBlanks = " \t\v\f\r\n\x1A";

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool SameName(std::string_view left, std::string_view right) {
  return CompareIgnoringCase(left, right) == 0;
}

}  // namespace

// One line, taken apart.
struct ProfileText::Line {
  std::size_t start = 0;
  std::size_t next = 0;  // where the next line starts
  bool is_header = false;
  bool has_value = false;
  bool is_comment = false;
  std::string_view name;  // of the section, or the key
  std::string_view value;
};

ProfileText::Line ProfileText::LineAt(std::size_t start) const {
  Line line;
  line.start = start;
  const auto end = text_.find('\n', start);
  line.next = end == std::string::npos ? text_.size() : end + 1;
  const std::string_view text = Trimmed(std::string_view(text_).substr(start, line.next - start));
  const auto bracket = text.rfind(']');
  if (text.starts_with('[') && bracket != std::string_view::npos) {
    line.is_header = true;
    line.name = Trimmed(text.substr(1, bracket - 1));
    return line;
  }
  const auto equals = text.find('=');
  line.has_value = equals != std::string_view::npos;
  line.is_comment = text.starts_with(';');
  line.name = Trimmed(text.substr(0, equals));
  if (line.has_value) line.value = Trimmed(text.substr(equals + 1));
  return line;
}

std::optional<ProfileText::Range> ProfileText::Find(std::string_view section) const {
  section = Trimmed(section);
  std::optional<Range> range;
  if (section.empty()) range = Range{};
  for (std::size_t position = 0; position < text_.size();) {
    const Line line = LineAt(position);
    if (line.is_header && range) {
      range->end = position;
      return range;
    }
    if (line.is_header && SameName(line.name, section)) range = Range{position, line.next, 0};
    position = line.next;
  }
  if (range) range->end = text_.size();
  return range;
}

std::optional<ProfileText::Line> ProfileText::Find(const Range& range, std::string_view key) const {
  key = Trimmed(key);
  for (std::size_t position = range.first; position < range.end;) {
    const Line line = LineAt(position);
    const bool blank = line.name.empty() && !line.has_value;
    if (!blank && SameName(line.name, key)) return line;
    position = line.next;
  }
  return std::nullopt;
}

std::optional<std::string_view> ProfileText::Value(std::string_view section,
                                                   std::string_view key) const {
  const std::optional<Range> range = Find(section);
  const std::optional<Line> line = range ? Find(*range, key) : std::nullopt;
  if (!line || !line->has_value) return std::nullopt;
  return line->value;
}

std::vector<std::string_view> ProfileText::Sections() const {
  std::vector<std::string_view> names;
  for (std::size_t position = 0; position < text_.size();) {
    const Line line = LineAt(position);
    if (line.is_header) names.push_back(line.name);
    position = line.next;
  }
  return names;
}

std::optional<std::vector<std::string_view>> ProfileText::Keys(std::string_view section) const {
  const std::optional<Range> range = Find(section);
  if (!range) return std::nullopt;
  std::vector<std::string_view> names;
  for (std::size_t position = range->first; position < range->end;) {
    const Line line = LineAt(position);
    if (line.has_value && !line.is_comment && !line.name.empty()) names.push_back(line.name);
    position = line.next;
  }
  return names;
}

void ProfileText::InsertLine(std::size_t position, const std::string& line) {
  const bool open_line = position > 0 && text_[position - 1] != '\n';
  text_.insert(position, (open_line ? "\r\n" : "") + line + "\r\n");
}

void ProfileText::Set(std::string_view section, std::string_view key, std::string_view value) {
  value.remove_prefix(std::min(value.find_first_not_of(" \t"), value.size()));
  const std::string behind = '=' + std::string(value);
  const std::optional<Range> range = Find(section);
  if (!range) {
    InsertLine(text_.size(),
               '[' + std::string(Trimmed(section)) + "]\r\n" + std::string(Trimmed(key)) + behind);
    return;
  }
  if (const std::optional<Line> line = Find(*range, key)) {
    if (line->has_value && line->value == value) return;
    const auto end = text_.find_last_not_of("\r\n", line->next - 1) + 1;
    text_.replace(line->start, end - line->start, std::string(line->name) + behind);
    return;
  }
  std::size_t last = range->first;
  for (std::size_t position = range->first; position < range->end;) {
    const Line line = LineAt(position);
    if (!line.name.empty() || line.has_value) last = line.next;
    position = line.next;
  }
  InsertLine(last, std::string(Trimmed(key)) + behind);
}

void ProfileText::Remove(std::string_view section, std::string_view key) {
  const std::optional<Range> range = Find(section);
  const std::optional<Line> line = range ? Find(*range, key) : std::nullopt;
  if (line) text_.erase(line->start, line->next - line->start);
}

void ProfileText::RemoveSection(std::string_view section) {
  if (const std::optional<Range> range = Find(section)) {
    text_.erase(range->header, range->end - range->header);
  }
}

}  // namespace tidemark::hosted
