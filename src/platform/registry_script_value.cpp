#include "platform/registry_script_value.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <system_error>

#include "platform/code_page.h"
#include "platform/exact_text.h"
#include "platform/registry_rules.h"

namespace tidemark {
namespace {

// -1 for what is no hexadecimal digit.
constexpr auto kHexDigits = [] {
  std::array<signed char, 256> digits{};
  for (auto& digit : digits) digit = -1;
  for (signed char i = 0; i < 16; ++i) {
    digits[static_cast<unsigned char>("0123456789abcdef"[i])] = i;
    digits[static_cast<unsigned char>("0123456789ABCDEF"[i])] = i;
  }
  return digits;
}();

int HexDigit(char character) { return kHexDigits[static_cast<unsigned char>(character)]; }

bool StopsPlainText(char character) {
  return character == '"' || character == '\\' || character == '\0';
}

}  // namespace

const ScriptValue& ScriptValueReader::Read() {
  value_.removes = false;
  value_.odd_byte.reset();
  if (cursor_.Peek() == '@') {
    cursor_.Advance();
    value_.name.clear();
  } else {
    ReadQuoted(value_.name);
    // The registry's calls take a name up to its first NUL.
    value_.name.resize(std::string_view(value_.name.c_str()).size());
  }
  if (value_.name.size() > kLongestValueName && Utf16Length(value_.name) > kLongestValueName) {
    throw ScriptFault{"the name of a value is too long"};
  }
  cursor_.SkipBlanks();
  if (cursor_.Peek() != '=') throw ScriptFault{"a value without \"=\""};
  cursor_.Advance();
  cursor_.SkipBlanks();
  ReadData();
  return value_;
}

void ScriptValueReader::ReadData() {
  if (cursor_.Peek() == '"') {
    ReadQuoted(value_.data);
    value_.data += '\0';
    value_.type = REG_SZ;
    return EndLine();
  }
  if (cursor_.Takes("-")) {
    value_.removes = true;
    return EndLine();
  }
  if (cursor_.Takes("dword:")) return ReadNumber();
  if (cursor_.Takes("hex:")) return ReadBytes(REG_BINARY);
  if (cursor_.Takes("hex(")) return ReadTypedBytes();
  throw ScriptFault{"unknown value type"};
}

void ScriptValueReader::ReadQuoted(std::string& into) {
  into.clear();
  cursor_.Advance();
  for (;;) {
    const std::string_view rest = cursor_.Rest();
    std::size_t plain = 0;
    while (plain < rest.size() && !StopsPlainText(rest[plain])) ++plain;
    into.append(rest, 0, plain);
    cursor_.Advance(plain);
    if (cursor_.AtEnd()) throw ScriptFault{"a text without its closing quote"};
    const char stop = cursor_.Peek();
    cursor_.Advance();
    if (stop == '"') return;
    if (stop == '\0') throw ScriptFault{"a NUL in a text"};
    ReadEscape(into);
  }
}

void ScriptValueReader::ReadEscape(std::string& into) {
  if (cursor_.AtEnd()) throw ScriptFault{"a text without its closing quote"};
  const char escaped = cursor_.Peek();
  cursor_.Advance();
  if (escaped == '\0') throw ScriptFault{"a NUL in a text"};
  switch (escaped) {
    case '\\':
    case '"':
      into += escaped;
      break;
    case 'n':
      into += '\n';
      break;
    case 'r':
      into += '\r';
      break;
    case '0':
      into += '\0';
      break;
    default:
      if (manner_ == ScriptManner::kStrict) throw ScriptFault{"unknown escape in a text"};
      into += escaped;
  }
}

void ScriptValueReader::ReadNumber() {
  std::uint32_t number = 0;
  int digits = 0;
  for (; HexDigit(cursor_.Peek()) >= 0; cursor_.Advance(), ++digits) {
    number = number << 4U | static_cast<std::uint32_t>(HexDigit(cursor_.Peek()));
  }
  if (digits == 0 || digits > 8) throw ScriptFault{"wrong number"};
  EndLine();
  value_.type = REG_DWORD;
  value_.data.clear();
  for (unsigned i = 0; i < 4; ++i) value_.data += static_cast<char>(number >> 8 * i & 0xFFU);
}

// Behind the "(" of the type.
void ScriptValueReader::ReadTypedBytes() {
  DWORD type = 0;
  const std::string_view rest = cursor_.Rest();
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), type, 16);
  cursor_.Advance(static_cast<std::size_t>(end - rest.data()));
  if (error != std::errc() || !cursor_.Takes("):")) throw ScriptFault{"unknown value type"};
  ReadBytes(type);
}

void ScriptValueReader::ReadBytes(DWORD type) {
  std::string& data = value_.data;
  data.clear();
  bool comma = false;
  for (;;) {
    cursor_.SkipBlanks();
    if (cursor_.Peek() == '\\') {
      cursor_.Advance();
      ContinueLine();
      continue;
    }
    const int digit = HexDigit(cursor_.Peek());
    if (digit < 0) break;
    if (!data.empty() && !comma) throw ScriptFault{"wrong bytes"};
    cursor_.Advance();
    int byte = digit;
    if (HexDigit(cursor_.Peek()) >= 0) {
      byte = byte * 16 + HexDigit(cursor_.Peek());
      cursor_.Advance();
    }
    data += static_cast<char>(byte);
    cursor_.SkipBlanks();
    comma = cursor_.Peek() == ',';
    if (comma) cursor_.Advance();
  }
  if (comma && manner_ == ScriptManner::kStrict) throw ScriptFault{"bytes end in a comma"};
  EndLine();
  if (IsTextType(type)) DecodeData();
  value_.type = type;
}

// Behind the "\" of a line of bytes.
void ScriptValueReader::ContinueLine() {
  cursor_.SkipBlanks();
  if (cursor_.Peek() == '\r') cursor_.Advance();
  if (cursor_.Peek() != '\n') throw ScriptFault{"bytes are cut"};
  cursor_.Advance();
  cursor_.SkipBlanks();
  if (cursor_.AtEnd()) throw ScriptFault{"bytes are cut"};
}

void ScriptValueReader::DecodeData() {
  if (eight_bit_) {
    value_.data = FromSystemCodePage(value_.data);
  } else {
    if (value_.data.size() % 2 != 0) value_.odd_byte = value_.data.back();
    std::string text;
    AppendFromUtf16(value_.data, text);
    value_.data.swap(text);
  }
}

// Only blanks and a comment may follow.
void ScriptValueReader::EndLine() {
  cursor_.SkipBlanks();
  const char next = cursor_.Peek();
  if (!cursor_.AtEnd() && next != '\r' && next != '\n' && next != ';') {
    throw ScriptFault{"something stands behind the value"};
  }
  cursor_.SkipLine();
}

}  // namespace tidemark
