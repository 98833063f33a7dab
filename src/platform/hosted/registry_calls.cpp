// The platform's registry calls that open, make and look at keys.
#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/exact_text.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_call_checks.h"
#include "platform/hosted/registry_handles.h"
#include "platform/hosted/registry_open.h"
#include "platform/hosted/registry_store.h"
#include "platform/registry_rules.h"
#include "platform/winapi.h"

// The hosted PC does as Windows does where Wine 8.0 differs: HKEY_CLASSES_ROOT shows the user's
// classes over the machine's (Wine: the machine's alone), and "" on RegCreateKeyExA opens an
// existing key (Wine: reports it as new).

using tidemark::IsTextType;
using tidemark::Utf16Length;
using tidemark::hosted::CreateKeyAt;
using tidemark::hosted::CurrentRegistry;
using tidemark::hosted::HostedPc;
using tidemark::hosted::IncomingText;
using tidemark::hosted::kMaximumAllowed;
using tidemark::hosted::OpenKey;
using tidemark::hosted::OpenKeyAt;
using tidemark::hosted::PathLimit;
using tidemark::hosted::RegistryStore;
using tidemark::hosted::RegistryValue;
using tidemark::hosted::RegistryView;
using tidemark::hosted::Resolve;
using tidemark::hosted::TextOrEmpty;

namespace {

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
  return OpenKeyAt(key, IncomingText(TextOrEmpty(sub_key)).text(), PathLimit::kEightBit, access,
                   result);
}

LSTATUS RegCreateKeyA(HKEY key, LPCSTR sub_key, PHKEY result) {
  return RegCreateKeyExA(key, sub_key, 0, nullptr, REG_OPTION_NON_VOLATILE, kMaximumAllowed,
                         nullptr, result, nullptr);
}

LSTATUS RegCreateKeyExA(HKEY key, LPCSTR sub_key, DWORD, LPSTR, DWORD, REGSAM access,
                        const SECURITY_ATTRIBUTES*, PHKEY result, LPDWORD disposition) {
  return CreateKeyAt(key, IncomingText(TextOrEmpty(sub_key)).text(), PathLimit::kEightBit, access,
                     result, disposition);
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
