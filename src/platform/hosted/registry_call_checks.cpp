#include "platform/hosted/registry_call_checks.h"

#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_editor.h"
#include "platform/hosted/registry_handles.h"
#include "platform/registry_rules.h"

namespace tidemark::hosted {
namespace {

constexpr std::size_t kLongestPath = 260;  // in 16-bit units

LONG CheckPath(HKEY key, std::string_view path, PathLimit limit) {
  if (limit == PathLimit::kEightBit && LongerThan(path, kLongestPath)) return ERROR_MORE_DATA;
  if (path.starts_with('\\') && key != HKEY_CLASSES_ROOT) return ERROR_BAD_PATHNAME;
  if (path.size() <= kLongestKeyName) return ERROR_SUCCESS;
  for (std::string_view part = NextPart(path); !part.empty(); part = NextPart(path)) {
    if (LongerThan(part, kLongestKeyName)) return ERROR_INVALID_PARAMETER;
  }
  return ERROR_SUCCESS;
}

}  // namespace

RegistryStore& CurrentRegistry() {
  HostedPc& pc = HostedPc::Current();
  pc.editor().CatchUp();
  return pc.registry();
}

std::string ExactText(LPCWSTR text) {
  std::string exact;
  if (text == nullptr) return exact;
  const std::u16string_view units(text);
  AppendFromUtf16({reinterpret_cast<const char*>(units.data()), 2 * units.size()}, exact);
  return exact;
}

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

// HKEY_DYN_DATA is a root in name only.
LONG ResolveForOpen(RegistryStore& store, HKEY key, std::string_view path, OpenKey* open,
                    PathLimit limit) {
  if (key == HKEY_DYN_DATA) return ERROR_FILE_NOT_FOUND;
  const LONG status = Resolve(store, key, 0, open);
  return status != ERROR_SUCCESS ? status : CheckPath(key, path, limit);
}

}  // namespace tidemark::hosted
