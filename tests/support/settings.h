// The program's stored settings, and the key where programs that start with the user's session are.
#pragma once

#include <string>

#include "helpers/settings_key.h"
#include "registry/mdlRegistry.h"

namespace tidemark {

inline const std::string kRun = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

inline void Store(const char* name, const std::string& text) {
  SaveRegString(HKEY_CURRENT_USER, kSettingsKey, name, text);
}
inline std::string Stored(const char* name) {
  return GetRegString(HKEY_CURRENT_USER, kSettingsKey, name, "none");
}

}  // namespace tidemark
