#include "registry/exact_registry.h"

#include <cstring>

#include "platform/exact_text.h"
#include "platform/registry_rules.h"

namespace tidemark {
namespace {

using Wide = std::basic_string<WCHAR>;

Wide WideOf(std::string_view text) {
  std::string bytes;
  AppendAsUtf16(text, bytes);
  Wide wide(bytes.size() / 2, WCHAR{});
  std::memcpy(wide.data(), bytes.data(), bytes.size());
  return wide;
}

void AssignFromWide(const WCHAR* units, std::size_t count, std::string& text) {
  text.clear();
  AppendFromUtf16({reinterpret_cast<const char*>(units), 2 * count}, text);
}

// Behind the data that are written: no end that the platform would take for the text's.
constexpr std::string_view kNoEnd = "\xFF\xFF";

}  // namespace

LSTATUS ExactKey::Open(HKEY parent, std::string_view path, ExactKey& key) {
  HKEY opened = nullptr;
  const LSTATUS status = RegOpenKeyExW(parent, WideOf(path).c_str(), 0,
                                       KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS, &opened);
  key.key_.Reset(status == ERROR_SUCCESS ? opened : nullptr);
  return status;
}

LSTATUS ExactKey::Create(HKEY parent, std::string_view path, ExactKey& key) {
  HKEY opened = nullptr;
  const LSTATUS status =
      RegCreateKeyExW(parent, WideOf(path).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                      KEY_QUERY_VALUE | KEY_SET_VALUE, nullptr, &opened, nullptr);
  key.key_.Reset(status == ERROR_SUCCESS ? opened : nullptr);
  return status;
}

LSTATUS ExactKey::SubKeyName(DWORD index, std::string& name) const {
  WCHAR units[kLongestKeyName + 1];
  DWORD count = kLongestKeyName + 1;
  const LSTATUS status =
      RegEnumKeyExW(Handle(), index, units, &count, nullptr, nullptr, nullptr, nullptr);
  if (status == ERROR_SUCCESS) AssignFromWide(units, count, name);
  return status;
}

LSTATUS ExactKey::ValueName(DWORD index, std::string& name) const {
  WCHAR units[kLongestValueName + 1];
  DWORD count = kLongestValueName + 1;
  const LSTATUS status =
      RegEnumValueW(Handle(), index, units, &count, nullptr, nullptr, nullptr, nullptr);
  if (status == ERROR_SUCCESS) AssignFromWide(units, count, name);
  return status;
}

LSTATUS ExactKey::Read(std::string_view name, ExactValue& value) const {
  const Wide wide = WideOf(name);
  DWORD size = 0;
  LSTATUS status = RegQueryValueExW(Handle(), wide.c_str(), nullptr, &value.type, nullptr, &size);
  // It may grow between the two looks.
  while (status == ERROR_SUCCESS) {
    value.bytes.resize(size);
    status = RegQueryValueExW(Handle(), wide.c_str(), nullptr, &value.type,
                              reinterpret_cast<LPBYTE>(value.bytes.data()), &size);
    if (status == ERROR_SUCCESS) {
      value.bytes.resize(size);
      break;
    }
    if (status == ERROR_MORE_DATA) status = ERROR_SUCCESS;
  }
  return status;
}

LSTATUS ExactKey::Write(std::string_view name, const ExactValue& value) const {
  const std::string guarded = value.bytes + std::string(kNoEnd);
  return RegSetValueExW(Handle(), WideOf(name).c_str(), 0, value.type,
                        reinterpret_cast<const BYTE*>(guarded.data()),
                        static_cast<DWORD>(value.bytes.size()));
}

LSTATUS ExactKey::DeleteValue(std::string_view name) const {
  return RegDeleteValueW(Handle(), WideOf(name).c_str());
}

LSTATUS DeleteEmptyKey(HKEY parent, std::string_view path) {
  return RegDeleteKeyW(parent, WideOf(path).c_str());
}

}  // namespace tidemark
