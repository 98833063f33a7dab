// The platform's 16-bit registry calls: names and data with every bit of them.
#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/exact_text.h"
#include "platform/hosted/registry_call_checks.h"
#include "platform/hosted/registry_open.h"
#include "platform/hosted/registry_store.h"
#include "platform/registry_rules.h"
#include "platform/winapi.h"

using tidemark::IsTextType;
using tidemark::kLongestValueName;
using tidemark::hosted::CreateKeyAt;
using tidemark::hosted::CurrentRegistry;
using tidemark::hosted::ExactText;
using tidemark::hosted::LongerThan;
using tidemark::hosted::OpenKey;
using tidemark::hosted::OpenKeyAt;
using tidemark::hosted::PathLimit;
using tidemark::hosted::RegistryStore;
using tidemark::hosted::RegistryValue;
using tidemark::hosted::Resolve;

namespace {

// As the platform stores it.
std::string StoredBytes(const RegistryValue& value) {
  if (!IsTextType(value.type())) return std::string(value.data());
  std::string bytes;
  tidemark::AppendAsUtf16(value.data(), bytes);
  if (const auto odd = value.odd_byte()) bytes += *odd;
  return bytes;
}

LONG CopyData(const RegistryValue& value, LPDWORD type, LPBYTE data, LPDWORD size_bytes) {
  if (type != nullptr) *type = value.type();
  if (size_bytes == nullptr) return ERROR_SUCCESS;
  const std::string stored = StoredBytes(value);
  const DWORD room = *size_bytes;
  *size_bytes = static_cast<DWORD>(stored.size());
  if (data == nullptr) return ERROR_SUCCESS;
  if (room < stored.size()) return ERROR_MORE_DATA;
  std::copy(stored.begin(), stored.end(), data);
  return ERROR_SUCCESS;
}

LONG CopyName(std::string_view exact, LPWSTR name, LPDWORD name_size) {
  std::string units;
  tidemark::AppendAsUtf16(exact, units);
  const std::size_t count = units.size() / 2;
  if (count >= *name_size) return ERROR_MORE_DATA;
  std::memcpy(name, units.data(), units.size());
  name[count] = u'\0';
  *name_size = static_cast<DWORD>(count);
  return ERROR_SUCCESS;
}

// The platform looks one unit beyond a text that is given without its end, and takes the end that
// stands there.
[[gnu::no_sanitize_address]] DWORD SizeWithEnd(const BYTE* data, DWORD size_bytes) {
  const DWORD units = size_bytes / 2;
  const auto unit_at = [data](DWORD unit) __attribute__((no_sanitize("address"))) {
    return data[2 * unit] | data[2 * unit + 1] << 8;
  };
  if (units == 0 || unit_at(units - 1) == 0 || unit_at(units) != 0) return size_bytes;
  return size_bytes + 2;
}

}  // namespace

LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR sub_key, DWORD, REGSAM access, PHKEY result) {
  return OpenKeyAt(key, ExactText(sub_key), PathLimit::kNone, access, result);
}

LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR sub_key, DWORD, LPWSTR, DWORD, REGSAM access,
                        const SECURITY_ATTRIBUTES*, PHKEY result, LPDWORD disposition) {
  return CreateKeyAt(key, ExactText(sub_key), PathLimit::kNone, access, result, disposition);
}

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                         LPDWORD size_bytes) {
  if (reserved != nullptr || (data != nullptr && size_bytes == nullptr)) {
    return ERROR_INVALID_PARAMETER;
  }
  RegistryStore& store = CurrentRegistry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_QUERY_VALUE, &open);
  if (status != ERROR_SUCCESS) return status;
  const RegistryValue* value = store.FindValue(open.view, ExactText(name));
  return value == nullptr ? ERROR_FILE_NOT_FOUND : CopyData(*value, type, data, size_bytes);
}

LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD, DWORD type, const BYTE* data,
                       DWORD size_bytes) {
  if (data == nullptr && size_bytes > 0) return ERROR_INVALID_PARAMETER;
  RegistryStore& store = CurrentRegistry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_SET_VALUE, &open);
  if (status != ERROR_SUCCESS) return status;
  const std::string value_name = ExactText(name);
  if (LongerThan(value_name, kLongestValueName)) return ERROR_INVALID_PARAMETER;
  if (open.view.target() == nullptr) return ERROR_ACCESS_DENIED;
  if (IsTextType(type)) size_bytes = SizeWithEnd(data, size_bytes);
  const std::string_view bytes(reinterpret_cast<const char*>(data), size_bytes);
  if (!IsTextType(type)) {
    const bool set = store.SetValue(*open.view.target(), value_name, type, bytes);
    return set ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
  }
  std::string text;
  tidemark::AppendFromUtf16(bytes, text);
  std::optional<char> odd_byte;
  if (bytes.size() % 2 != 0) odd_byte = bytes.back();
  const bool set = store.SetValue(*open.view.target(), value_name, type, text, odd_byte);
  return set ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD name_size, LPDWORD, LPWSTR,
                      LPDWORD, FILETIME* last_write) {
  RegistryStore& store = CurrentRegistry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_ENUMERATE_SUB_KEYS, &open);
  if (status != ERROR_SUCCESS) return status;
  if (index >= store.KeyCount(open.view)) return ERROR_NO_MORE_ITEMS;
  if (last_write != nullptr) *last_write = {0, 0};  // the text format does not keep it
  return CopyName(store.KeyAt(open.view, index).name(), name, name_size);
}

LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD name_size, LPDWORD, LPDWORD type,
                      LPBYTE data, LPDWORD data_size) {
  RegistryStore& store = CurrentRegistry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_QUERY_VALUE, &open);
  if (status != ERROR_SUCCESS) return status;
  if (index >= store.ValueCount(open.view)) return ERROR_NO_MORE_ITEMS;
  const RegistryValue& value = store.ValueAt(open.view, index);
  const LONG copied = CopyData(value, type, data, data_size);
  const LONG named = CopyName(value.name(), name, name_size);
  return named != ERROR_SUCCESS ? named : copied;
}
