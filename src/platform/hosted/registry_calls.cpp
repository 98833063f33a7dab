// The platform's registry calls that open, make and look at keys.
#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/exact_text.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_call_checks.h"
#include "platform/hosted/registry_handles.h"
#include "platform/hosted/registry_store.h"
#include "platform/registry_rules.h"
#include "platform/winapi.h"

// The hosted PC does as Windows does where Wine 8.0 differs: HKEY_CLASSES_ROOT shows the user's
// classes over the machine's (Wine: the machine's alone), and "" on RegCreateKeyExA opens an
// existing key (Wine: reports it as new).

using tidemark::IsTextType;
using tidemark::Utf16Length;
using tidemark::hosted::CurrentRegistry;
using tidemark::hosted::HostedPc;
using tidemark::hosted::IncomingText;
using tidemark::hosted::NamesNoKey;
using tidemark::hosted::OpenKey;
using tidemark::hosted::RegistryStore;
using tidemark::hosted::RegistryValue;
using tidemark::hosted::RegistryView;
using tidemark::hosted::Resolve;
using tidemark::hosted::ResolveForOpen;
using tidemark::hosted::TextOrEmpty;

namespace {

constexpr REGSAM kMaximumAllowed = 0x02000000;
constexpr REGSAM kGenericAll = 0x10000000;
constexpr REGSAM kWriteRights = 0x20006;  // KEY_WRITE
constexpr REGSAM kWow64Rights = 0x0300;   // which view of a 64-bit PC: there is only one here

// The rights that an open gets; ERROR_ACCESS_DENIED when it does not get what it asks for.
LONG Grant(const RegistryStore& store, const RegistryView& view, REGSAM wanted, REGSAM* granted) {
  const REGSAM denied = store.Denied(view);
  if ((wanted & kMaximumAllowed) != 0) {
    *granted = KEY_ALL_ACCESS & ~denied;
    return *granted != 0 ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
  }
  *granted = wanted & KEY_ALL_ACCESS;
  if ((wanted & GENERIC_READ) != 0) *granted |= KEY_READ;
  if ((wanted & GENERIC_WRITE) != 0) *granted |= kWriteRights;
  if ((wanted & kGenericAll) != 0) *granted |= KEY_ALL_ACCESS;
  return (*granted & denied) == 0 ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

LONG OpenView(RegistryStore& store, const RegistryView& view, REGSAM wanted, PHKEY result) {
  REGSAM granted = 0;
  const LONG status = Grant(store, view, wanted & ~kWow64Rights, &granted);
  if (status == ERROR_SUCCESS) *result = store.handles().Open(view, granted);
  return status;
}

DWORD LongestSubKey(RegistryStore& store, const RegistryView& view) {
  std::size_t longest = 0;
  for (std::size_t i = store.KeyCount(view); i > 0; --i) {
    const std::string& name = store.KeyAt(view, i - 1).name();
    if (name.size() > longest) longest = std::max(longest, Utf16Length(name));
  }
  return static_cast<DWORD>(longest);
}

DWORD LongestValueName(RegistryStore& store, const RegistryView& view) {
  std::size_t longest = 0;
  for (std::size_t i = store.ValueCount(view); i > 0; --i) {
    const std::string_view name = store.ValueAt(view, i - 1).name();
    if (name.size() > longest) longest = std::max(longest, Utf16Length(name));
  }
  return static_cast<DWORD>(longest);
}

// In bytes of the platform's own 16-bit text, as it stores it.
std::size_t StoredSize(const RegistryValue& value) {
  if (!IsTextType(value.type())) return value.data().size();
  return 2 * Utf16Length(value.data()) + (value.odd_byte() ? 1 : 0);
}

DWORD LongestData(RegistryStore& store, const RegistryView& view) {
  std::size_t longest = 0;
  for (std::size_t i = store.ValueCount(view); i > 0; --i) {
    const RegistryValue& value = store.ValueAt(view, i - 1);
    const std::size_t size = value.data().size();
    const bool text = IsTextType(value.type());
    if ((text ? 2 * size + 1 : size) <= longest) continue;
    longest = std::max(longest, StoredSize(value));
  }
  return static_cast<DWORD>(longest);
}

}  // namespace

LSTATUS RegOpenKeyA(HKEY key, LPCSTR sub_key, PHKEY result) {
  if (result == nullptr) return ERROR_INVALID_PARAMETER;
  if (TextOrEmpty(sub_key).empty()) {
    *result = key;
    return ERROR_SUCCESS;
  }
  return RegOpenKeyExA(key, sub_key, 0, kMaximumAllowed, result);
}

LSTATUS RegOpenKeyExA(HKEY key, LPCSTR sub_key, DWORD, REGSAM access, PHKEY result) {
  if (result == nullptr) return ERROR_INVALID_PARAMETER;
  *result = nullptr;
  RegistryStore& store = CurrentRegistry();
  const IncomingText path(TextOrEmpty(sub_key));
  OpenKey from;
  const LONG status = ResolveForOpen(store, key, path.text(), &from);
  if (status != ERROR_SUCCESS) return status;
  if (store.IsRoot(key) && NamesNoKey(path.text())) {
    *result = key;
    return ERROR_SUCCESS;
  }
  const RegistryView view = store.Open(from.view, path.text());
  return view.exists() ? OpenView(store, view, access, result) : ERROR_FILE_NOT_FOUND;
}

LSTATUS RegCreateKeyA(HKEY key, LPCSTR sub_key, PHKEY result) {
  return RegCreateKeyExA(key, sub_key, 0, nullptr, REG_OPTION_NON_VOLATILE, kMaximumAllowed,
                         nullptr, result, nullptr);
}

LSTATUS RegCreateKeyExA(HKEY key, LPCSTR sub_key, DWORD, LPSTR, DWORD, REGSAM access,
                        const SECURITY_ATTRIBUTES*, PHKEY result, LPDWORD disposition) {
  if (result == nullptr) return ERROR_INVALID_PARAMETER;
  *result = nullptr;
  RegistryStore& store = CurrentRegistry();
  const IncomingText path(TextOrEmpty(sub_key));
  OpenKey from;
  LONG status = ResolveForOpen(store, key, path.text(), &from);
  if (status != ERROR_SUCCESS) return status;
  bool made = false;
  if (store.IsRoot(key) && NamesNoKey(path.text())) {
    *result = key;
  } else {
    const RegistryView view = store.Create(from.view, path.text(), &made);
    if (!view.exists()) return ERROR_ACCESS_DENIED;
    status = OpenView(store, view, access, result);
  }
  if (status == ERROR_SUCCESS && disposition != nullptr) {
    *disposition = made ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
  }
  return status;
}

LSTATUS RegCloseKey(HKEY key) {
  RegistryStore& store = HostedPc::Current().registry();
  return store.IsRoot(key) || store.handles().Close(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

LSTATUS RegEnumKeyA(HKEY key, DWORD index, LPSTR name, DWORD size) {
  RegistryStore& store = CurrentRegistry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_ENUMERATE_SUB_KEYS, &open);
  if (status != ERROR_SUCCESS) return status;
  if (index >= store.KeyCount(open.view)) return ERROR_NO_MORE_ITEMS;
  const std::string& found = store.KeyAt(open.view, index).name();
  if (name == nullptr || found.size() >= size) return ERROR_MORE_DATA;
  std::memcpy(name, found.c_str(), found.size() + 1);
  return ERROR_SUCCESS;
}

LSTATUS RegQueryInfoKeyA(HKEY key, LPSTR class_text, LPDWORD class_size, LPDWORD, LPDWORD sub_keys,
                         LPDWORD max_sub_key, LPDWORD max_class, LPDWORD values,
                         LPDWORD max_value_name, LPDWORD max_value_data, LPDWORD security_size,
                         FILETIME* last_write) {
  RegistryStore& store = CurrentRegistry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_QUERY_VALUE, &open);
  if (status != ERROR_SUCCESS) return status;
  const RegistryView& view = open.view;
  if (class_text != nullptr && class_size != nullptr && *class_size > 0) *class_text = '\0';
  if (class_size != nullptr) *class_size = 0;
  if (sub_keys != nullptr) *sub_keys = static_cast<DWORD>(store.KeyCount(view));
  if (values != nullptr) *values = static_cast<DWORD>(store.ValueCount(view));
  if (max_sub_key != nullptr) *max_sub_key = LongestSubKey(store, view);
  if (max_value_name != nullptr) *max_value_name = LongestValueName(store, view);
  if (max_value_data != nullptr) *max_value_data = LongestData(store, view);
  if (max_class != nullptr) *max_class = 0;
  if (security_size != nullptr) *security_size = 0;
  if (last_write != nullptr) *last_write = {0, 0};  // the text format does not keep it
  return ERROR_SUCCESS;
}
