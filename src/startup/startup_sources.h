// Where the programs that start with Windows stand: labels, keys and folders.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "window/frmMain.h"

namespace tidemark {

struct RegistrySource {
  std::string_view location;
  std::string_view name;  // of the key below "Software\Microsoft\Windows\CurrentVersion\"
};

// In the order of the list.
inline constexpr std::array<RegistrySource, 7> kRegistrySources = {{
    {"Registry\\Current User\\Run", "Run"},
    {"Registry\\Current User\\Run Once", "RunOnce"},
    {"Registry\\All Users\\Run", "Run"},
    {"Registry\\All Users\\Run Once", "RunOnce"},
    {"Registry\\All Users\\Run Once Ex", "RunOnceEx"},
    {"Registry\\All Users\\Run Services", "RunServices"},
    {"Registry\\All Users\\Run Services Once", "RunServicesOnce"},
}};

inline constexpr const char* kWinIniLoad = "Win.ini\\Load";
inline constexpr const char* kWinIniRun = "Win.ini\\Run";
inline constexpr const char* kStartupAllUsers = "Startup Folder\\All Users";
inline constexpr const char* kStartupCurrentUser = "Startup Folder\\Current User";

inline constexpr const char* kEnabledSection = "Windows";
inline constexpr const char* kDisabledSection = "SM_Disabled";

inline constexpr const char* kEnabledText = "Enabled";
inline constexpr const char* kDisabledText = "Disabled";

// The path of the twin key that holds what is disabled.
std::string TwinKey(const std::string& path);

std::string WinIniFile();

// The folder from which the shell starts programs; all but the all-users location give the user's.
// Without a trailing backslash; empty when the system has none.
std::string LiveFolder(std::string_view location);
// The folder in the program's directory where what is disabled waits. The set-up makes it; nothing
// here does.
std::string StoreFolder(const frmMain& window, std::string_view location);

}  // namespace tidemark
