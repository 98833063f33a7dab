// The platform's registry calls on the PC that is switched on.
#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_editor.h"
#include "platform/hosted/registry_handles.h"
#include "platform/hosted/registry_names.h"
#include "platform/hosted/registry_store.h"
#include "platform/winapi.h"

// The hosted PC does as Windows does where Wine 8.0 differs: HKEY_CLASSES_ROOT shows the user's
// classes over the machine's (Wine: the machine's alone), values come in the order they were made
// (Wine: sorted), RegEnumValueA gives the name also when the data area is too small, and "" on
// RegCreateKeyExA opens an existing key (Wine: reports it as new).

using tidemark::hosted::HostedPc;
using tidemark::hosted::IsAscii;
using tidemark::hosted::MendText;
using tidemark::hosted::RegistryHandles;
using tidemark::hosted::RegistryKey;
using tidemark::hosted::RegistryStore;
using tidemark::hosted::RegistryValue;
using tidemark::hosted::RegistryView;
using tidemark::hosted::Utf16Length;

namespace {

constexpr REGSAM kDelete = 0x10000;  // DELETE of winnt.h
constexpr REGSAM kMaximumAllowed = 0x02000000;
constexpr REGSAM kGenericAll = 0x10000000;
constexpr REGSAM kWriteRights = 0x20006;  // KEY_WRITE
constexpr REGSAM kWow64Rights = 0x0300;   // which view of a 64-bit PC: there is only one here

// In 16-bit units.
constexpr std::size_t kLongestPath = 260;
constexpr std::size_t kLongestKeyName = 256;
constexpr std::size_t kLongestValueName = 16383;

RegistryStore& Registry() {
  HostedPc& pc = HostedPc::Current();
  pc.editor().CatchUp();
  return pc.registry();
}

std::string_view Text(LPCSTR text) { return text == nullptr ? std::string_view() : text; }

bool IsText(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ; }

bool LongerThan(std::string_view text, std::size_t units) {
  return text.size() > units && Utf16Length(text) > units;
}

// Text that comes in; most is ASCII and need not be copied.
class IncomingText {
 public:
  explicit IncomingText(std::string_view text) : text_(text) {
    if (!IsAscii(text)) text_ = mended_ = MendText(text);
  }
  IncomingText(const IncomingText&) = delete;
  IncomingText& operator=(const IncomingText&) = delete;
  std::string_view text() const { return text_; }

 private:
  std::string mended_;
  std::string_view text_;
};

struct OpenKey {
  RegistryView view;
  REGSAM access = 0;
};

// ERROR_ACCESS_DENIED when the handle lacks one of the needed rights.
LONG Resolve(RegistryStore& store, HKEY key, REGSAM needed, OpenKey* open) {
  if (store.IsRoot(key)) {
    open->view = store.Root(key);
    open->access = KEY_ALL_ACCESS & ~store.Denied(open->view);
  } else {
    const RegistryHandles::Entry* entry = store.handles().Find(key);
    if (entry == nullptr) return ERROR_INVALID_HANDLE;
    if (!entry->view.exists()) return ERROR_KEY_DELETED;
    *open = {entry->view, entry->access};
  }
  return (open->access & needed) == needed ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

LONG CheckPath(HKEY key, std::string_view path) {
  if (LongerThan(path, kLongestPath)) return ERROR_MORE_DATA;
  if (path.starts_with('\\') && key != HKEY_CLASSES_ROOT) return ERROR_BAD_PATHNAME;
  if (path.size() <= kLongestKeyName) return ERROR_SUCCESS;
  for (std::string_view part = tidemark::hosted::NextPart(path); !part.empty();
       part = tidemark::hosted::NextPart(path)) {
    if (LongerThan(part, kLongestKeyName)) return ERROR_INVALID_PARAMETER;
  }
  return ERROR_SUCCESS;
}

bool NamesNoKey(std::string_view path) {
  return path.find_first_not_of('\\') == std::string_view::npos;
}

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

// HKEY_DYN_DATA is a root in name only.
LONG ResolveForOpen(RegistryStore& store, HKEY key, std::string_view path, OpenKey* open) {
  if (key == HKEY_DYN_DATA) return ERROR_FILE_NOT_FOUND;
  const LONG status = Resolve(store, key, 0, open);
  return status != ERROR_SUCCESS ? status : CheckPath(key, path);
}

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
  if (room > stored_size && IsText(value.type()) && (stored.empty() || stored.back() != '\0')) {
    data[stored_size] = 0;
  }
  return ERROR_SUCCESS;
}

// The platform looks one byte beyond the text that it is given, and takes a NUL that stands there.
[[gnu::no_sanitize_address]] bool NulStandsBehind(const BYTE* data, DWORD size_bytes) {
  return size_bytes > 0 && data[size_bytes - 1] != 0 && data[size_bytes] == 0;
}

LONG DeleteEmptyKey(RegistryStore& store, RegistryKey& key) {
  if (key.key_count() > 0 || store.IsFixed(key)) return ERROR_ACCESS_DENIED;
  if ((store.Denied(key) & (kDelete | KEY_SET_VALUE)) != 0) return ERROR_ACCESS_DENIED;
  store.DeleteKey(key);
  return ERROR_SUCCESS;
}

// What lies below the key and then the key, as far as it goes. In the merged view each name is
// deleted once: of a key that is there twice the machine's stays.
LONG DeleteTree(RegistryStore& store, const RegistryView& view);

void DeleteSubKeys(RegistryStore& store, const RegistryView& view) {
  for (std::size_t left = store.KeyCount(view); left > 0; --left) {
    const std::string name = store.KeyAt(view, left - 1).name();
    // What can't be deleted keeps its parent, and that is what the caller is told.
    static_cast<void>(DeleteTree(store, store.Open(view, name)));
  }
}

LONG DeleteTree(RegistryStore& store, const RegistryView& view) {
  if ((store.Denied(view) & KEY_ENUMERATE_SUB_KEYS) == 0) DeleteSubKeys(store, view);
  return DeleteEmptyKey(store, *view.target());
}

LONG DeleteContents(RegistryStore& store, const RegistryView& view) {
  DeleteSubKeys(store, view);
  RegistryKey* key = view.target();
  if (key == nullptr) return ERROR_SUCCESS;
  if ((store.Denied(*key) & KEY_SET_VALUE) != 0) return ERROR_ACCESS_DENIED;
  while (key->value_count() > 0) store.DeleteValue(*key, std::string(key->value(0).name()));
  return ERROR_SUCCESS;
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
DWORD LongestData(RegistryStore& store, const RegistryView& view) {
  std::size_t longest = 0;
  for (std::size_t i = store.ValueCount(view); i > 0; --i) {
    const RegistryValue& value = store.ValueAt(view, i - 1);
    const std::size_t size = value.data().size();
    const bool text = IsText(value.type());
    if ((text ? 2 * size : size) <= longest) continue;
    longest = std::max(longest, text ? 2 * Utf16Length(value.data()) : size);
  }
  return static_cast<DWORD>(longest);
}

}  // namespace

LSTATUS RegOpenKeyA(HKEY key, LPCSTR sub_key, PHKEY result) {
  if (result == nullptr) return ERROR_INVALID_PARAMETER;
  if (Text(sub_key).empty()) {
    *result = key;
    return ERROR_SUCCESS;
  }
  return RegOpenKeyExA(key, sub_key, 0, kMaximumAllowed, result);
}

LSTATUS RegOpenKeyExA(HKEY key, LPCSTR sub_key, DWORD, REGSAM access, PHKEY result) {
  if (result == nullptr) return ERROR_INVALID_PARAMETER;
  *result = nullptr;
  RegistryStore& store = Registry();
  const IncomingText path(Text(sub_key));
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
  RegistryStore& store = Registry();
  const IncomingText path(Text(sub_key));
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

LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                         LPDWORD size_bytes) {
  if (reserved != nullptr || (data != nullptr && size_bytes == nullptr)) {
    return ERROR_INVALID_PARAMETER;
  }
  RegistryStore& store = Registry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_QUERY_VALUE, &open);
  if (status != ERROR_SUCCESS) return status;
  const IncomingText wanted(Text(name));
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
  RegistryStore& store = Registry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_SET_VALUE, &open);
  if (status != ERROR_SUCCESS) return status;
  const IncomingText value_name(Text(name));
  if (LongerThan(value_name.text(), kLongestValueName)) return ERROR_INVALID_PARAMETER;
  if (open.view.target() == nullptr) return ERROR_ACCESS_DENIED;
  if (IsText(type) && NulStandsBehind(data, size_bytes)) ++size_bytes;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size_bytes);
  const IncomingText text(IsText(type) ? bytes : std::string_view());
  store.SetValue(*open.view.target(), value_name.text(), type, IsText(type) ? text.text() : bytes);
  return ERROR_SUCCESS;
}

LSTATUS RegDeleteValueA(HKEY key, LPCSTR name) {
  RegistryStore& store = Registry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_SET_VALUE, &open);
  if (status != ERROR_SUCCESS) return status;
  const IncomingText wanted(Text(name));
  for (RegistryKey* half : {open.view.top, open.view.under}) {
    if (half != nullptr && store.DeleteValue(*half, wanted.text())) return ERROR_SUCCESS;
  }
  return ERROR_FILE_NOT_FOUND;
}

LSTATUS RegEnumKeyA(HKEY key, DWORD index, LPSTR name, DWORD size) {
  RegistryStore& store = Registry();
  OpenKey open;
  const LONG status = Resolve(store, key, KEY_ENUMERATE_SUB_KEYS, &open);
  if (status != ERROR_SUCCESS) return status;
  if (index >= store.KeyCount(open.view)) return ERROR_NO_MORE_ITEMS;
  const std::string& found = store.KeyAt(open.view, index).name();
  if (name == nullptr || found.size() >= size) return ERROR_MORE_DATA;
  std::memcpy(name, found.c_str(), found.size() + 1);
  return ERROR_SUCCESS;
}

LSTATUS RegEnumValueA(HKEY key, DWORD index, LPSTR name, LPDWORD name_size, LPDWORD reserved,
                      LPDWORD type, LPBYTE data, LPDWORD data_size) {
  if (name == nullptr || name_size == nullptr || reserved != nullptr ||
      (data != nullptr && data_size == nullptr)) {
    return ERROR_INVALID_PARAMETER;
  }
  RegistryStore& store = Registry();
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

LSTATUS RegQueryInfoKeyA(HKEY key, LPSTR class_text, LPDWORD class_size, LPDWORD, LPDWORD sub_keys,
                         LPDWORD max_sub_key, LPDWORD max_class, LPDWORD values,
                         LPDWORD max_value_name, LPDWORD max_value_data, LPDWORD security_size,
                         FILETIME* last_write) {
  RegistryStore& store = Registry();
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

LSTATUS RegDeleteKeyA(HKEY key, LPCSTR sub_key) {
  if (sub_key == nullptr) return ERROR_INVALID_PARAMETER;
  RegistryStore& store = Registry();
  const IncomingText path(sub_key);
  OpenKey from;
  const LONG status = ResolveForOpen(store, key, path.text(), &from);
  if (status != ERROR_SUCCESS) return status;
  const RegistryView view = store.Open(from.view, path.text());
  return view.exists() ? DeleteEmptyKey(store, *view.target()) : ERROR_FILE_NOT_FOUND;
}

LSTATUS SHDeleteKeyA(HKEY key, LPCSTR sub_key) {
  RegistryStore& store = Registry();
  const IncomingText path(Text(sub_key));
  OpenKey from;
  const LONG status = ResolveForOpen(store, key, path.text(), &from);
  if (status != ERROR_SUCCESS) {
    // This call alone takes a path that is too long for one that is not there.
    return status == ERROR_MORE_DATA ? ERROR_FILE_NOT_FOUND : status;
  }
  if (NamesNoKey(path.text())) return DeleteContents(store, from.view);
  const RegistryView view = store.Open(from.view, path.text());
  return view.exists() ? DeleteTree(store, view) : ERROR_FILE_NOT_FOUND;
}
