#include "platform/registry_script_writer.h"

#include <algorithm>
#include <cstdio>

#include "platform/code_page.h"
#include "platform/exact_text.h"
#include "platform/registry_rules.h"

namespace tidemark {
namespace {

constexpr std::size_t kFlushAt = 1U << 16U;
// A line of bytes is broken once it is this long; its "\" then stands within column 80.
constexpr std::size_t kLongestLine = 77;

}  // namespace

void ScriptWriter::Start() {
  if (form_ == ScriptForm::kVersion5) {
    sink_("\xFF\xFE");
    text_ += "Windows Registry Editor Version 5.00\r\n";
  } else {
    text_ += "REGEDIT4\r\n";
  }
}

void ScriptWriter::Key(std::string_view full_name) {
  text_.append("\r\n[").append(full_name).append("]\r\n");
  FlushWhenLong();
}

void ScriptWriter::Value(std::string_view name, DWORD type, std::string_view data,
                         std::optional<char> odd_byte) {
  const std::size_t start = text_.size();
  if (name.empty()) {
    text_ += '@';
  } else {
    Quote(name);
  }
  text_ += '=';
  if (type == REG_SZ && !odd_byte && IsPlainText(data)) {
    Quote(data.substr(0, data.size() - 1));
  } else if (type == REG_DWORD && data.size() == 4) {
    Number(data);
  } else if (IsTextType(type)) {
    Bytes(start, type, EncodedText(data, odd_byte));
  } else {
    Bytes(start, type, data);
  }
  text_ += "\r\n";
  FlushWhenLong();
}

void ScriptWriter::StoredValue(std::string_view name, DWORD type, std::string_view bytes) {
  if (!IsTextType(type)) return Value(name, type, bytes);
  std::string text;
  AppendFromUtf16(bytes, text);
  const bool odd = bytes.size() % 2 != 0;
  Value(name, type, text, odd ? std::optional<char>(bytes.back()) : std::nullopt);
}

void ScriptWriter::Comment(std::string_view text) {
  text_.append("; ").append(text).append("\r\n");
  FlushWhenLong();
}

void ScriptWriter::Finish() {
  text_ += "\r\n";
  Flush();
}

void ScriptWriter::Flush() {
  if (form_ == ScriptForm::kRegedit4) {
    sink_(ToSystemCodePage(text_));
  } else {
    std::string bytes;
    bytes.reserve(2 * text_.size());
    AppendAsUtf16(text_, bytes);
    sink_(bytes);
  }
  text_.clear();
}

void ScriptWriter::FlushWhenLong() {
  if (text_.size() >= kFlushAt) Flush();
}

// A text that the quoted form gives back exactly: it has its end, and no other.
bool ScriptWriter::IsPlainText(std::string_view data) const {
  if (data.empty() || data.find('\0') != data.size() - 1) return false;
  const auto is_control = [](char character) { return character > '\0' && character < ' '; };
  return !only_plain_ || std::none_of(data.begin(), data.end(), is_control);
}

void ScriptWriter::Quote(std::string_view text) {
  text_ += '"';
  for (const char character : text) {
    if (character == '"' || character == '\\') text_ += '\\';
    text_ += character;
  }
  text_ += '"';
}

void ScriptWriter::Hex(unsigned value) {
  constexpr char kDigits[] = "0123456789abcdef";
  text_ += kDigits[value >> 4U & 0xFU];
  text_ += kDigits[value & 0xFU];
}

void ScriptWriter::Number(std::string_view data) {
  text_ += "dword:";
  for (std::size_t i = 4; i > 0; --i) Hex(static_cast<unsigned char>(data[i - 1]));
}

std::string ScriptWriter::EncodedText(std::string_view text, std::optional<char> odd_byte) const {
  if (form_ == ScriptForm::kRegedit4) return ToSystemCodePage(text);
  std::string bytes;
  AppendAsUtf16(text, bytes);
  if (odd_byte) bytes += *odd_byte;
  return bytes;
}

void ScriptWriter::Bytes(std::size_t line_start, DWORD type, std::string_view bytes) {
  text_ += "hex";
  if (type != REG_BINARY) {
    char digits[9];
    std::snprintf(digits, sizeof digits, "%x", static_cast<unsigned>(type));
    text_.append("(").append(digits).append(")");
  }
  text_ += ':';
  std::size_t column = Utf16Length(std::string_view(text_).substr(line_start));
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    Hex(static_cast<unsigned char>(bytes[i]));
    if (i + 1 == bytes.size()) break;
    text_ += ',';
    column += 3;
    if (column >= kLongestLine) {
      text_ += "\\\r\n  ";
      column = 2;
    }
  }
}

}  // namespace tidemark
