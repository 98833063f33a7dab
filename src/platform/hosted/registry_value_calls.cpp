// The platform's registry calls on the values of a key.
#include <algorithm>
#include <string_view>

#include "platform/hosted/registry_call_checks.h"
#include "platform/hosted/registry_store.h"
#include "platform/registry_rules.h"
#include "platform/winapi.h"

// The hosted PC does as Windows does where Wine 8.0 differs: values come in the order they were
// made (Wine: sorted), and RegEnumValueA gives the name also when the data area is too small.

using tidemark::IsTextType;
using tidemark::kLongestValueName;
using tidemark::hosted::CurrentRegistry;
using tidemark::hosted::ExactText;
using tidemark::hosted::IncomingText;
using tidemark::hosted::LongerThan;
using tidemark::hosted::OpenKey;
using tidemark::hosted::RegistryKey;
using tidemark::hosted::RegistryStore;
using tidemark::hosted::RegistryValue;
using tidemark::hosted::Resolve;
using tidemark::hosted::TextOrEmpty;

namespace {

// Copies a value's data out, as the two calls that read data do. Where there is room, a text that
// was stored without its end gets one, uncounted.
LONG CopyData(const RegistryValue& value, LPDWORD type, LPBYTE data, LPDWORD size_bytes) {
  const std::string_view stored = value.data();
  const auto stored_size = static_cast<DWORD>(stored.size());
  if (type != nullptr) *type = value.type();
  if (size_bytes == nullptr) return ERROR_SUCCESS;
  const DWORD room = *size_bytes;
  *size_bytes = stored_size;
  if (data == nullptr) return ERROR_SUCCESS;
  if (room < stored_size) return ERROR_MORE_DATA;
  std::copy(stored.begin(), stored.end(), data);
  if (room > stored_size && IsTextType(value.type()) && (stored.empty() || stored.back() != '\0')) {
    data[stored_size] = 0;
  }
  return ERROR_SUCCESS;
}

// The platform looks one byte beyond the text that it is given, and takes a NUL that stands there.
[[gnu::no_sanitize_address]] bool NulStandsBehind(const BYTE* data, DWORD size_bytes) {
  return size_bytes > 0 && data[size_bytes - 1] != 0 && data[size_bytes] == 0;
}

LONG DeleteValueOf(HKEY key, std::string_view name) {
  RegistryStore& store = CurrentRegistry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_SET_VALUE, &open);
  if (status != ERROR_SUCCESS) return status;
  for (RegistryKey* half : {open.view.top, open.view.under}) {
    if (half == nullptr || half->FindValue(name) == nullptr) continue;
    return store.DeleteValue(*half, name) ? ERROR_SUCCESS : ERROR_NOT_SUPPORTED;
  }
  return ERROR_FILE_NOT_FOUND;
}

}  // namespace

LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                         LPDWORD size_bytes) {
  if (reserved != nullptr || (data != nullptr && size_bytes == nullptr)) {
    return ERROR_INVALID_PARAMETER;
  }
  RegistryStore& store = CurrentRegistry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_QUERY_VALUE, &open);
  if (status != ERROR_SUCCESS) return status;
  const IncomingText wanted(TextOrEmpty(name));
  const RegistryValue* value = store.FindValue(open.view, wanted.text());
  if (value == nullptr) {
    if (type != nullptr) *type = REG_NONE;
    if (size_bytes != nullptr && data == nullptr) *size_bytes = 0;
    return ERROR_FILE_NOT_FOUND;
  }
  return CopyData(*value, type, data, size_bytes);
}

LSTATUS RegSetValueExA(HKEY key, LPCSTR name, DWORD, DWORD type, const BYTE* data,
                       DWORD size_bytes) {
  if (data == nullptr && size_bytes > 0) return ERROR_INVALID_PARAMETER;
  RegistryStore& store = CurrentRegistry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_SET_VALUE, &open);
  if (status != ERROR_SUCCESS) return status;
  const IncomingText value_name(TextOrEmpty(name));
  if (LongerThan(value_name.text(), kLongestValueName)) return ERROR_INVALID_PARAMETER;
  if (open.view.target() == nullptr) return ERROR_ACCESS_DENIED;
  if (IsTextType(type) && NulStandsBehind(data, size_bytes)) ++size_bytes;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size_bytes);
  const IncomingText text(IsTextType(type) ? bytes : std::string_view());
  const std::string_view stored = IsTextType(type) ? text.text() : bytes;
  const bool set = store.SetValue(*open.view.target(), value_name.text(), type, stored);
  return set ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

LSTATUS RegDeleteValueA(HKEY key, LPCSTR name) {
  return DeleteValueOf(key, IncomingText(TextOrEmpty(name)).text());
}

LSTATUS RegDeleteValueW(HKEY key, LPCWSTR name) { return DeleteValueOf(key, ExactText(name)); }

LSTATUS RegEnumValueA(HKEY key, DWORD index, LPSTR name, LPDWORD name_size, LPDWORD reserved,
                      LPDWORD type, LPBYTE data, LPDWORD data_size) {
  if (name == nullptr || name_size == nullptr || reserved != nullptr ||
      (data != nullptr && data_size == nullptr)) {
    return ERROR_INVALID_PARAMETER;
  }
  RegistryStore& store = CurrentRegistry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_QUERY_VALUE, &open);
  if (status != ERROR_SUCCESS) return status;
  if (index >= store.ValueCount(open.view)) return ERROR_NO_MORE_ITEMS;
  const RegistryValue& value = store.ValueAt(open.view, index);
  const std::string_view found = value.name();
  const LONG copied = CopyData(value, type, data, data_size);
  if (found.size() >= *name_size) return ERROR_MORE_DATA;
  std::copy(found.begin(), found.end(), name);
  name[found.size()] = '\0';
  *name_size = static_cast<DWORD>(found.size());
  return copied;
}
