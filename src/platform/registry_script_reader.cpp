#include "platform/registry_script_reader.h"

#include "platform/code_page.h"
#include "platform/exact_text.h"
#include "platform/registry_rules.h"

namespace tidemark {
namespace {

constexpr std::string_view kVersion5 = "Windows Registry Editor Version 5.00";
constexpr std::string_view kRegedit4 = "REGEDIT4";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string_view WithoutBlanksBehind(std::string_view text) {
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

void CheckKey(std::string_view path) {
  if (path.find('\0') != std::string_view::npos) throw ScriptFault{"a NUL in the name of a key"};
  if (path.size() <= kLongestKeyName) return;
  for (std::string_view part = NextPart(path); !part.empty(); part = NextPart(path)) {
    if (part.size() > kLongestKeyName && Utf16Length(part) > kLongestKeyName) {
      throw ScriptFault{"the name of a key is too long"};
    }
  }
}

}  // namespace

std::string DecodeScript(std::string_view bytes, ScriptManner manner) {
  if (bytes.starts_with(kUtf16Mark)) {
    if (bytes.size() % 2 != 0 && manner == ScriptManner::kStrict) {
      throw ScriptFault{"16-bit text with half a character at its end"};
    }
    std::string text;
    text.reserve(bytes.size() / 2);
    AppendFromUtf16(bytes.substr(kUtf16Mark.size()), text);
    return text;
  }
  if (bytes.starts_with(kUtf16BigMark))
    throw ScriptFault{"unknown encoding: 16-bit text, big end first"};
  if (bytes.starts_with(kUtf8Mark)) return MendText(bytes.substr(kUtf8Mark.size()));
  return IsAscii(bytes) ? std::string(bytes) : FromSystemCodePage(bytes);
}

ScriptReader::ScriptReader(std::string_view text, ScriptManner manner)
    : cursor_(text), manner_(manner), values_(cursor_, manner) {
  const std::string_view header = WithoutBlanksBehind(cursor_.RestOfLine());
  const bool eight_bit = header == kRegedit4;
  if (!eight_bit && header != kVersion5)
    throw ScriptFault{"no registry script: unknown first line"};
  values_.set_eight_bit(eight_bit);
  cursor_.SkipLine();
}

ScriptReader::Line ScriptReader::Next() {
  while (!cursor_.AtEnd()) {
    line_start_ = cursor_.position();
    bool is_key = false;
    try {
      cursor_.SkipBlanks();
      is_key = cursor_.Peek() == '[';
      const Line line = ReadLine();
      if (line != Line::kEnd) return line;
    } catch (const ScriptFault&) {
      if (manner_ == ScriptManner::kStrict) throw;
      cursor_.MoveTo(line_start_);
      cursor_.SkipLine();
      if (!is_key) continue;
      key_ = {};
      return Line::kKey;
    }
  }
  return Line::kEnd;
}

// kEnd of a line that holds nothing.
ScriptReader::Line ScriptReader::ReadLine() {
  switch (cursor_.Peek()) {
    case '[':
      return ReadKeyLine();
    case '@':
    case '"':
      value_ = &values_.Read();
      return Line::kValue;
    case ';':
      if (tells_comments_) return ReadComment();
      [[fallthrough]];
    case '\r':
    case '\n':
      cursor_.SkipLine();
      return Line::kEnd;
    case '\0':
      if (cursor_.AtEnd()) return Line::kEnd;
      [[fallthrough]];
    default:
      throw ScriptFault{"neither a key nor a value"};
  }
}

ScriptReader::Line ScriptReader::ReadComment() {
  comment_ = cursor_.RestOfLine().substr(1);
  while (comment_.starts_with(' ')) comment_.remove_prefix(1);
  cursor_.SkipLine();
  return Line::kComment;
}

ScriptReader::Line ScriptReader::ReadKeyLine() {
  const std::string_view line = cursor_.RestOfLine();
  const std::size_t end = line.rfind(']');
  if (end == std::string_view::npos) throw ScriptFault{"a key without its closing bracket"};
  if (!WithoutBlanksBehind(line.substr(end + 1)).empty() && manner_ == ScriptManner::kStrict) {
    throw ScriptFault{"something stands behind the key"};
  }
  key_ = line.substr(1, end - 1);
  const bool removes = key_.starts_with('-');
  if (removes) key_.remove_prefix(1);
  CheckKey(key_);
  cursor_.Advance(line.size());
  cursor_.SkipLine();
  return removes ? Line::kRemovedKey : Line::kKey;
}

std::size_t ScriptReader::line() const {
  std::size_t line = 1;
  for (const char character : cursor_.text().substr(0, line_start_)) {
    line += character == '\n' ? 1 : 0;
  }
  return line;
}

}  // namespace tidemark
