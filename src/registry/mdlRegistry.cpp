#include "registry/mdlRegistry.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "helpers/text_helpers.h"
#include "platform/unicode.h"
#include "platform/unique_handle.h"

namespace tidemark {
namespace {

// With the NUL; in UTF-8 the platform's 16-bit characters take up to three bytes each.
constexpr DWORD kNameCharacters = 261;
constexpr DWORD kNameBytes = kNameCharacters * 3;

HKEY OpenKeyPlainly(HKEY root, const std::string& sub_key) {
  HKEY key = nullptr;
  return RegOpenKeyA(root, sub_key.c_str(), &key) == ERROR_SUCCESS ? key : nullptr;
}

struct ValueShape {
  DWORD type = 0;
  DWORD size_bytes = 0;
};

std::optional<ValueShape> QueryShape(HKEY key, const char* name) {
  ValueShape shape;
  if (RegQueryValueExA(key, name, nullptr, &shape.type, nullptr, &shape.size_bytes) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  return shape;
}

// All bytes of a value of that size; no value when the read fails.
std::optional<std::string> QueryBytes(HKEY key, const char* name, DWORD size_bytes) {
  std::string bytes(size_bytes, '\0');
  // A size of 0 still needs somewhere to point at, or the call would only tell the size.
  if (RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(bytes.data()),
                       &size_bytes) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  bytes.resize(size_bytes);
  return bytes;
}

// As QueryBytes, but only what stands in front of the first NUL.
std::optional<std::string> QueryText(HKEY key, const char* name, DWORD size_bytes) {
  auto bytes = QueryBytes(key, name, size_bytes);
  if (bytes) StripNull(*bytes);
  return bytes;
}

std::string HexText(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  text.reserve(bytes.size() * 3);
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text += kDigits[value >> 4U];
    text += kDigits[value & 15U];
    text += ' ';
  }
  if (!text.empty()) text.pop_back();
  return text;
}

enum class BinaryBytes { kAll, kAllButTheLast };

RegData QueryData(HKEY key, const char* name, ValueShape shape, BinaryBytes binary_bytes) {
  switch (shape.type) {
    case REG_SZ:
    case REG_EXPAND_SZ:
    case REG_MULTI_SZ: {
      auto text = QueryText(key, name, shape.size_bytes);
      if (!text) return {};
      return *std::move(text);
    }
    case REG_DWORD: {
      std::int32_t number = 0;
      DWORD size = sizeof number;
      if (RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size) !=
          ERROR_SUCCESS) {
        return {};
      }
      return number;
    }
    case REG_BINARY: {
      auto bytes = QueryBytes(key, name, shape.size_bytes);
      if (!bytes) return {};
      if (binary_bytes == BinaryBytes::kAllButTheLast && !bytes->empty()) bytes->pop_back();
      return HexText(*bytes);
    }
    default:
      return {};
  }
}

std::size_t CountCharacters(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char byte) { return !ContinuesCharacter(byte); }));
}

// A blank-filled name buffer after a call wrote a name and its NUL into it: trimmed of blanks,
// which leaves the NUL at the end. A buffer that the call left alone gives the empty text, and so
// does a name that does not fit the buffer's characters.
std::string TrimmedName(const std::array<char, kNameBytes + 1>& buffer) {
  const std::string_view text(buffer.data(), kNameBytes);
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const std::size_t end = text.find('\0', first);
  if (end != std::string_view::npos && end >= kNameCharacters &&
      CountCharacters(text.substr(0, end)) >= kNameCharacters) {
    return {};
  }
  return std::string(text.substr(first, end == std::string_view::npos ? end : end - first + 1));
}

std::array<char, kNameBytes + 1>& BlankNameBuffer() {
  static std::array<char, kNameBytes + 1> buffer;
  buffer.fill(' ');
  return buffer;
}

// No data area is handed over: the call serves only to learn name, type and size, and on some
// platforms a value that does not fit loses its name.
std::string EnumName(HKEY key, DWORD index, ValueShape* shape) {
  auto& buffer = BlankNameBuffer();
  DWORD name_bytes = kNameBytes;
  RegEnumValueA(key, index, buffer.data(), &name_bytes, nullptr, &shape->type, nullptr,
                &shape->size_bytes);
  return TrimmedName(buffer);
}

LSTATUS SetBytes(HKEY key, const std::string& name, DWORD type, const std::string& bytes) {
  return RegSetValueExA(key, name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                        static_cast<DWORD>(bytes.size()));
}

}  // namespace

std::string RegDataText(const RegData& data) {
  if (const auto* text = std::get_if<std::string>(&data)) return *text;
  if (const auto* number = std::get_if<std::int32_t>(&data)) return std::to_string(*number);
  return {};
}

std::string GetRegString(HKEY root, const std::string& sub_key, const std::string& name,
                         const std::string& default_text) {
  const UniqueKey key(OpenKeyPlainly(root, sub_key));
  const auto shape = QueryShape(key.Get(), name.c_str());
  if (!shape || shape->type != REG_SZ) return default_text;
  return QueryText(key.Get(), name.c_str(), shape->size_bytes).value_or(default_text);
}

void SaveRegString(HKEY root, const std::string& sub_key, const std::string& name,
                   const std::string& text) {
  HKEY opened = nullptr;
  if (RegCreateKeyA(root, sub_key.c_str(), &opened) != ERROR_SUCCESS) return;
  const UniqueKey key(opened);
  SetBytes(key.Get(), name, REG_SZ, text);
}

HKEY OpenRegKey(HKEY root, const std::string& sub_key) {
  HKEY key = nullptr;
  const LSTATUS status = RegOpenKeyExA(root, sub_key.c_str(), 0, kKeyAccess, &key);
  return status == ERROR_SUCCESS ? key : nullptr;
}

DWORD CountRegItems(HKEY key, RegItems kind) {
  DWORD sub_keys = 0;
  DWORD values = 0;
  GetRegKeyInfo(key, sub_keys, values);
  switch (kind) {
    case RegItems::kValues:
      return values;
    case RegItems::kSubKeys:
      return sub_keys;
  }
  return 0;
}

void GetRegKeyInfo(HKEY key, DWORD& sub_keys, DWORD& values) {
  sub_keys = 0;
  values = 0;
  RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, &sub_keys, nullptr, nullptr, &values, nullptr,
                   nullptr, nullptr, nullptr);
}

std::string EnumRegKey(HKEY key, DWORD index) {
  auto& buffer = BlankNameBuffer();
  RegEnumKeyA(key, index, buffer.data(), kNameBytes);
  return TrimmedName(buffer);
}

std::string EnumRegValueName(HKEY key, DWORD index) {
  ValueShape shape;
  return EnumName(key, index, &shape);
}

void EnumRegValue(HKEY key, DWORD index, std::string& name, std::string& data, DWORD& type) {
  ValueShape shape;
  name = EnumName(key, index, &shape);
  type = shape.type;
  data.clear();
  data = RegDataText(QueryData(key, name.c_str(), shape, BinaryBytes::kAll));
}

void DeleteRegValue(HKEY root, const std::string& sub_key, const std::string& name) {
  const UniqueKey key(OpenKeyPlainly(root, sub_key));
  RegDeleteValueA(key.Get(), name.c_str());
}

LSTATUS SetRegValue(HKEY root, const std::string& sub_key, const std::string& name,
                    const std::string& text, DWORD& type) {
  const HKEY key = OpenRegKey(root, sub_key);  // stays open, on purpose
  if (type == 0) type = REG_SZ;
  return SetBytes(key, name, type, text);
}

std::string GetOpenKeyString(HKEY key, const std::string& name) {
  const auto shape = QueryShape(key, name.c_str());
  if (!shape || shape->type != REG_SZ) return {};
  return QueryText(key, name.c_str(), shape->size_bytes).value_or("");
}

bool WriteRegValue(HKEY root, const std::string& sub_key, const std::string& name,
                   const std::string& data, DWORD type, DWORD& disposition) {
  HKEY opened = nullptr;
  LSTATUS status = RegOpenKeyExA(root, sub_key.c_str(), 0, kKeyAccess, &opened);
  if (status != ERROR_SUCCESS) {
    status = RegCreateKeyExA(root, sub_key.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, kKeyAccess,
                             nullptr, &opened, &disposition);
  }
  if (status != ERROR_SUCCESS) status = RegCreateKeyA(root, sub_key.c_str(), &opened);
  const UniqueKey key(status == ERROR_SUCCESS ? opened : nullptr);
  if (type == REG_SZ || type == REG_BINARY) status = SetBytes(key.Get(), name, type, data);
  return status == ERROR_SUCCESS;
}

RegData GetRegData(HKEY root, const std::string& sub_key, const std::string& name) {
  const HKEY key = OpenKeyPlainly(root, sub_key);  // stays open, on purpose
  const auto shape = QueryShape(key, name.c_str());
  if (!shape) return {};
  return QueryData(key, name.c_str(), *shape, BinaryBytes::kAllButTheLast);
}

bool RegKeyExists(HKEY root, const std::string& sub_key) {
  HKEY opened = nullptr;
  const LSTATUS status = RegOpenKeyA(root, sub_key.c_str(), &opened);
  const UniqueKey key(status == ERROR_SUCCESS ? opened : nullptr);
  return status != ERROR_FILE_NOT_FOUND && status != ERROR_BADKEY;
}

}  // namespace tidemark
