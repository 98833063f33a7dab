#include "platform/hosted/registry_open.h"

#include "platform/hosted/registry_handles.h"

namespace tidemark::hosted {
namespace {

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

}  // namespace

LONG OpenKeyAt(HKEY key, std::string_view path, PathLimit limit, REGSAM access, PHKEY result) {
  if (result == nullptr) return ERROR_INVALID_PARAMETER;
  *result = nullptr;
  RegistryStore& store = CurrentRegistry();
  OpenKey from;
  const LONG status = ResolveForOpen(store, key, path, &from, limit);
  if (status != ERROR_SUCCESS) return status;
  if (store.IsRoot(key) && NamesNoKey(path)) {
    *result = key;
    return ERROR_SUCCESS;
  }
  const RegistryView view = store.Open(from.view, path);
  return view.exists() ? OpenView(store, view, access, result) : ERROR_FILE_NOT_FOUND;
}

LONG CreateKeyAt(HKEY key, std::string_view path, PathLimit limit, REGSAM access, PHKEY result,
                 LPDWORD disposition) {
  if (result == nullptr) return ERROR_INVALID_PARAMETER;
  *result = nullptr;
  RegistryStore& store = CurrentRegistry();
  OpenKey from;
  LONG status = ResolveForOpen(store, key, path, &from, limit);
  if (status != ERROR_SUCCESS) return status;
  bool made = false;
  if (store.IsRoot(key) && NamesNoKey(path)) {
    *result = key;
  } else {
    const RegistryView view = store.Create(from.view, path, &made);
    if (!view.exists()) return ERROR_ACCESS_DENIED;
    status = OpenView(store, view, access, result);
  }
  if (status == ERROR_SUCCESS && disposition != nullptr) {
    *disposition = made ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
  }
  return status;
}

}  // namespace tidemark::hosted
