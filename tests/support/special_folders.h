// Start menus, start-up folders and a desktop of a test's own: those that the shell names would be
// shared by all tests on Windows. There the shell looks them up in the registry, which is
// redirected; a hosted PC has them to itself.
#pragma once

#include <string>
#include <utility>

#include "tests/support/test_pc.h"

namespace tidemark {

inline void UseOwnSpecialFolders(TestPc& pc) {
  const std::string key = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";
  for (const char* const sub_key : {"User Shell Folders", "Shell Folders"}) {
    for (const char* const name : {"Start Menu", "Startup", "Desktop"}) {
      pc.SetText(HKEY_CURRENT_USER, key + sub_key, name, pc.folder() + "\\User\\" + name);
    }
    for (const char* const name : {"Start Menu", "Startup"}) {
      pc.SetText(HKEY_LOCAL_MACHINE, key + sub_key, std::string("Common ") + name,
                 pc.folder() + "\\Common\\" + name);
    }
  }
}

}  // namespace tidemark
