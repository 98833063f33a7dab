#include "platform/hosted/registry_script_keys.h"

#include <algorithm>

#include "platform/registry_rules.h"

namespace tidemark::hosted {

RegistryView ScriptKeyFinder::Make(std::string_view path) {
  Keep(path);
  if (steps_.empty() && !StartAt(path)) return {};
  std::string_view rest = path.substr(steps_.back().end);
  RegistryView view = steps_.back().view;
  for (std::string_view part = NextPart(rest); !part.empty(); part = NextPart(rest)) {
    bool made = false;
    view = store_.Create(view, part, &made);
    if (!view.exists()) break;
    steps_.push_back({path.size() - rest.size(), view});
  }
  last_.assign(path, 0, steps_.back().end);
  return view;
}

// Keeps the steps that are those of the path too.
void ScriptKeyFinder::Keep(std::string_view path) {
  const std::size_t common = std::min(path.size(), last_.size());
  std::size_t shared = 0;
  while (shared < common && path[shared] == last_[shared]) ++shared;
  while (!steps_.empty()) {
    const std::size_t end = steps_.back().end;
    if (end <= shared && (end == path.size() || path[end] == '\\')) break;
    steps_.pop_back();
  }
}

bool ScriptKeyFinder::StartAt(std::string_view path) {
  const std::string_view root = path.substr(0, path.find('\\'));
  if (!store_.IsRoot(root)) return false;
  RegistryView view = store_.Root(root);
  if (!view.exists()) {  // HKEY_CLASSES_ROOT of a PC that has no classes yet
    bool made = false;
    view.under = store_.Create(store_.Root(HKEY_LOCAL_MACHINE), "Software\\Classes", &made).top;
  }
  steps_.push_back({root.size(), view});
  return view.exists();
}

}  // namespace tidemark::hosted
