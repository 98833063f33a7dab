#include "platform/hosted/mapped_profile.h"

#include <cstring>

#include "platform/letter_case.h"
#include "platform/unique_handle.h"

namespace tidemark::hosted {
namespace {

constexpr const char* kMappedKey = "Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows";

UniqueKey OpenMapped() {
  HKEY key = nullptr;
  const bool open =
      RegOpenKeyExA(HKEY_CURRENT_USER, kMappedKey, 0, KEY_READ, &key) == ERROR_SUCCESS;
  return UniqueKey(open ? key : nullptr);
}

}  // namespace

bool IsMapped(std::string_view path, LPCSTR section) {
  const std::string_view name = path.substr(path.find_last_of("\\/:") + 1);
  return section != nullptr && CompareIgnoringCase(name, "win.ini") == 0 &&
         CompareIgnoringCase(section, "windows") == 0;
}

std::vector<std::string> MappedNames() {
  std::vector<std::string> names;
  const UniqueKey key = OpenMapped();
  std::string name(16384, '\0');
  for (DWORD index = 0; key; ++index) {
    auto size = static_cast<DWORD>(name.size());
    if (RegEnumValueA(key.Get(), index, name.data(), &size, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      break;
    }
    names.push_back(name.substr(0, size));
  }
  return names;
}

std::optional<std::string> MappedValue(LPCSTR name) {
  const UniqueKey key = OpenMapped();
  DWORD type = 0;
  DWORD size = 0;
  if (!key || RegQueryValueExA(key.Get(), name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS ||
      type != REG_SZ) {
    return std::nullopt;
  }
  std::string value(size, '\0');
  RegQueryValueExA(key.Get(), name, nullptr, nullptr, reinterpret_cast<LPBYTE>(value.data()),
                   &size);
  return value.substr(0, value.find('\0'));
}

LONG WriteMapped(LPCSTR name, LPCSTR text) {
  if (name == nullptr) return SHDeleteKeyA(HKEY_CURRENT_USER, kMappedKey);
  HKEY opened = nullptr;
  if (const LONG status = RegCreateKeyA(HKEY_CURRENT_USER, kMappedKey, &opened)) return status;
  const UniqueKey key(opened);
  if (text == nullptr) return RegDeleteValueA(opened, name);
  return RegSetValueExA(opened, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text),
                        static_cast<DWORD>(std::strlen(text) + 1));
}

}  // namespace tidemark::hosted
