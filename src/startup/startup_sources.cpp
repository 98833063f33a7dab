#include "startup/startup_sources.h"

#include <algorithm>

#include "helpers/system_helpers.h"
#include "platform/letter_case.h"
#include "startup/startup.h"

namespace tidemark {

std::string TwinKey(const std::string& path) { return "-" + path; }

std::string WinIniFile() { return GetWindowsDir() + "\\win.ini"; }

std::string LiveFolder(std::string_view location) {
  return GetSpecialFolderPath(location == kStartupAllUsers ? CSIDL_COMMON_STARTUP : CSIDL_STARTUP);
}

std::string StoreFolder(const frmMain& window, std::string_view location) {
  return std::string(window.application.folder).append("\\").append(location);
}

HKEY GetHKey(std::string_view location) {
  const bool all_users = UpperCase(location).find("ALL") != std::string::npos;
  return all_users ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::string GetSubKey(std::string_view location) {
  const auto source =
      std::find_if(kRegistrySources.begin(), kRegistrySources.end(),
                   [location](const RegistrySource& one) { return one.location == location; });
  if (source == kRegistrySources.end()) return {};
  return std::string("Software\\Microsoft\\Windows\\CurrentVersion\\").append(source->name);
}

}  // namespace tidemark
