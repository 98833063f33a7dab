// What the registry really holds, to the last bit: every key of the machine and the user as
// "HKEY_X\A\" and every value as "HKEY_X\A\\name", each half of the classes by itself. The
// program's own settings are left out.
#pragma once

#include <map>
#include <string>

#include "registry/exact_registry.h"
#include "registry/real_keys.h"

namespace tidemark {

using ExactSnapshot = std::map<std::string, ExactValue>;

inline void TakeExactKey(const ExactKey& key, const std::string& full_name,
                         ExactSnapshot& snapshot) {
  snapshot[full_name + "\\"] = {};
  std::string name;
  for (DWORD index = 0; key.ValueName(index, name) == ERROR_SUCCESS; ++index) {
    key.Read(name, snapshot[full_name + "\\\\" + name]);
  }
  for (DWORD index = 0; key.SubKeyName(index, name) == ERROR_SUCCESS; ++index) {
    ExactKey below;
    if (full_name == "HKEY_CURRENT_USER\\Software" && name == "Tidemark") continue;
    if (ExactKey::Open(key.Handle(), name, below) != ERROR_SUCCESS) continue;
    TakeExactKey(below, full_name + "\\" + name, snapshot);
  }
}

// Below the two roots, or below one key of them.
inline ExactSnapshot TakeExactSnapshot(HKEY root, const std::string& path) {
  ExactSnapshot snapshot;
  ExactKey key;
  if (ExactKey::Open(root, path, key) != ERROR_SUCCESS) return snapshot;
  std::string name = FullName({root, path});
  if (path.empty()) name.pop_back();
  TakeExactKey(key, name, snapshot);
  return snapshot;
}
inline ExactSnapshot TakeExactSnapshot() {
  ExactSnapshot snapshot = TakeExactSnapshot(HKEY_LOCAL_MACHINE, "");
  snapshot.merge(TakeExactSnapshot(HKEY_CURRENT_USER, ""));
  return snapshot;
}

}  // namespace tidemark
