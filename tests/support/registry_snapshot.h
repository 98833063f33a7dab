// What the registry holds, as the program sees it: every key as "HKEY_X\A\" and every value as
// "HKEY_X\A\\name", in capitals. The classes are the merged ones alone, for an undo file puts back
// into the machine's what was the user's; the program's own settings are left out.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "helpers/key_names.h"
#include "platform/letter_case.h"
#include "platform/unique_handle.h"
#include "tests/support/test_pc.h"

namespace tidemark {

using RegistrySnapshot = std::map<std::string, TestValue>;

inline void TakeKey(HKEY root, const std::string& path, RegistrySnapshot& snapshot) {
  HKEY opened = nullptr;
  if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return;
  const UniqueKey key(opened);
  const std::string start = std::string(HkeyText(root)) + "\\" + (path.empty() ? "" : path + "\\");
  snapshot[UpperCase(start)] = {};
  std::vector<char> name(1000);
  std::string data(20'000, '\0');
  for (DWORD index = 0;; ++index) {
    auto name_size = static_cast<DWORD>(name.size());
    auto data_size = static_cast<DWORD>(data.size());
    TestValue value;
    if (RegEnumValueA(key.Get(), index, name.data(), &name_size, nullptr, &value.type,
                      reinterpret_cast<BYTE*>(data.data()), &data_size) != ERROR_SUCCESS) {
      break;
    }
    value.bytes = data.substr(0, data_size);
    snapshot[UpperCase(start + "\\" + name.data())] = value;
  }
  for (DWORD index = 0; RegEnumKeyA(key.Get(), index, name.data(), 1000) == ERROR_SUCCESS;
       ++index) {
    TakeKey(root, path.empty() ? name.data() : path + "\\" + name.data(), snapshot);
  }
}

inline RegistrySnapshot TakeSnapshot() {
  RegistrySnapshot snapshot;
  for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER, HKEY_CLASSES_ROOT}) {
    TakeKey(root, "", snapshot);
  }
  std::erase_if(snapshot, [](const auto& entry) {
    const std::string_view below_root =
        std::string_view(entry.first).substr(entry.first.find('\\') + 1);
    return below_root.starts_with("SOFTWARE\\TIDEMARK\\") ||
           below_root.starts_with("SOFTWARE\\CLASSES\\");
  });
  return snapshot;
}

}  // namespace tidemark
