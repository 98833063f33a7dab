// The special folders as the section [folders] of pc.ini names them.
#pragma once

#include <string_view>

#include "platform/winapi.h"

namespace tidemark::hosted {

struct FolderName {
  std::string_view key;
  int csidl;
};
// Has a call of its own, and no number that the program asks for.
inline constexpr int kWindowsFolder = -1;

inline constexpr FolderName kFolderNames[] = {
    {"windows", kWindowsFolder},
    {"fonts", CSIDL_FONTS},
    {"desktop", CSIDL_DESKTOP},
    {"start menu", CSIDL_STARTMENU},
    {"startup", CSIDL_STARTUP},
    {"common start menu", CSIDL_COMMON_STARTMENU},
    {"common startup", CSIDL_COMMON_STARTUP},
};

}  // namespace tidemark::hosted
