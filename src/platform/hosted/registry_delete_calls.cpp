// The platform's registry calls that delete keys: an empty one, or one with all below it.
#include <string>

#include "platform/hosted/registry_call_checks.h"
#include "platform/hosted/registry_limits.h"
#include "platform/hosted/registry_store.h"
#include "platform/winapi.h"

using tidemark::hosted::CanLose;
using tidemark::hosted::CanLoseValues;
using tidemark::hosted::CurrentRegistry;
using tidemark::hosted::ExactText;
using tidemark::hosted::IncomingText;
using tidemark::hosted::NamesNoKey;
using tidemark::hosted::OpenKey;
using tidemark::hosted::PathLimit;
using tidemark::hosted::RegistryKey;
using tidemark::hosted::RegistryStore;
using tidemark::hosted::RegistryView;
using tidemark::hosted::ResolveForOpen;
using tidemark::hosted::TextOrEmpty;

namespace {

constexpr REGSAM kDelete = 0x10000;  // DELETE of winnt.h

LONG DeleteEmptyKey(RegistryStore& store, RegistryKey& key) {
  if (key.key_count() > 0 || store.IsFixed(key)) return ERROR_ACCESS_DENIED;
  if ((store.Denied(key) & (kDelete | KEY_SET_VALUE)) != 0) return ERROR_ACCESS_DENIED;
  store.DeleteKey(key);
  return ERROR_SUCCESS;
}

// What lies below the key and then the key, as far as it goes. In the merged view each name is
// deleted once: of a key that is there twice the machine's stays.
LONG DeleteTree(RegistryStore& store, const RegistryView& view);

void DeleteSubKeys(RegistryStore& store, const RegistryView& view,
                   LONG (*delete_tree)(RegistryStore&, const RegistryView&)) {
  for (std::size_t left = store.KeyCount(view); left > 0; --left) {
    const std::string name = store.KeyAt(view, left - 1).name();
    if (store.IsLink(view, name)) continue;  // what it leads to lies elsewhere
    // What can't be deleted keeps its parent, and that is what the caller is told.
    static_cast<void>(delete_tree(store, store.Open(view, name)));
  }
}

LONG DeleteTree(RegistryStore& store, const RegistryView& view) {
  if ((store.Denied(view) & KEY_ENUMERATE_SUB_KEYS) == 0) {
    DeleteSubKeys(store, view, DeleteTree);
  }
  return DeleteEmptyKey(store, *view.target());
}

// A tree that the hive can't lose as a whole is left whole; that is no want of rights.
LONG DeleteTreeIfLost(RegistryStore& store, const RegistryView& view) {
  for (const RegistryKey* half : {view.top, view.under}) {
    if (half != nullptr && !CanLose(*half)) return ERROR_NOT_SUPPORTED;
  }
  return DeleteTree(store, view);
}

LONG DeleteKeyAt(HKEY key, std::string_view path, PathLimit limit) {
  RegistryStore& store = CurrentRegistry();
  OpenKey from;
  const LONG status = ResolveForOpen(store, key, path, &from, limit);
  if (status != ERROR_SUCCESS) return status;
  const RegistryView view = store.Open(from.view, path);
  if (!view.exists()) return ERROR_FILE_NOT_FOUND;
  return CanLose(*view.target()) ? DeleteEmptyKey(store, *view.target()) : ERROR_NOT_SUPPORTED;
}

LONG DeleteContents(RegistryStore& store, const RegistryView& view) {
  RegistryKey* key = view.target();
  if (key != nullptr && key->value_count() > 0 && !CanLoseValues(*key)) return ERROR_NOT_SUPPORTED;
  DeleteSubKeys(store, view, DeleteTreeIfLost);
  if (key == nullptr) return ERROR_SUCCESS;
  if ((store.Denied(*key) & KEY_SET_VALUE) != 0) return ERROR_ACCESS_DENIED;
  while (key->value_count() > 0) store.DeleteValue(*key, std::string(key->value(0).name()));
  return ERROR_SUCCESS;
}

}  // namespace

LSTATUS RegDeleteKeyA(HKEY key, LPCSTR sub_key) {
  if (sub_key == nullptr) return ERROR_INVALID_PARAMETER;
  return DeleteKeyAt(key, IncomingText(sub_key).text(), PathLimit::kEightBit);
}

LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR sub_key) {
  if (sub_key == nullptr) return ERROR_INVALID_PARAMETER;
  return DeleteKeyAt(key, ExactText(sub_key), PathLimit::kNone);
}

LSTATUS SHDeleteKeyA(HKEY key, LPCSTR sub_key) {
  RegistryStore& store = CurrentRegistry();
  const IncomingText path(TextOrEmpty(sub_key));
  OpenKey from;
  const LONG status = ResolveForOpen(store, key, path.text(), &from);
  if (status != ERROR_SUCCESS) {
    // This call alone takes a path that is too long for one that is not there.
    return status == ERROR_MORE_DATA ? ERROR_FILE_NOT_FOUND : status;
  }
  if (NamesNoKey(path.text())) return DeleteContents(store, from.view);
  const RegistryView view = store.Open(from.view, path.text());
  return view.exists() ? DeleteTreeIfLost(store, view) : ERROR_FILE_NOT_FOUND;
}
