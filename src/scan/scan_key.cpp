#include <array>
#include <string>
#include <vector>

#include "platform/unique_handle.h"
#include "platform/winapi.h"
#include "scan/scan.h"
#include "scan/walkers.h"

namespace tidemark {
namespace {

struct Walk {
  std::string_view code;
  void (*walker)(frmMain& window, HKEY hive, const std::string& key);
  HKEY hive;
  const char* key;
};

// In the order in which a test's walks are made. Predefined handles are no constant expressions on
// Windows, so the table is made at its first use.
const std::vector<Walk>& Walks() {
  static const std::vector<Walk> kWalks = {
      {"CLSID", ScanClassRoot, HKEY_CLASSES_ROOT, "CLSID"},
      {"INTERFACE", ScanClassRoot, HKEY_CLASSES_ROOT, "interface"},
      {"LIB", ScanClassRoot, HKEY_CLASSES_ROOT, "TypeLib"},
      {"DLL", ScanSharedDllKey, HKEY_LOCAL_MACHINE,
       "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDlls"},
      {"VDD", ScanPathKey, HKEY_LOCAL_MACHINE, "SYSTEM\\CurrentControlSet\\Services\\VxD"},
      {"FONT", ScanFontKey, HKEY_LOCAL_MACHINE,
       "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Fonts"},
      {"FONT", ScanFontKey, HKEY_LOCAL_MACHINE,
       "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Fonts"},
      {"IFA", ScanAssocRoot, HKEY_CLASSES_ROOT, ""},
      {"STARTUP", ScanPathKey, HKEY_CURRENT_USER,
       "Software\\Microsoft\\Windows\\CurrentVersion\\Run"},
      {"STARTUP", ScanPathKey, HKEY_LOCAL_MACHINE,
       "Software\\Microsoft\\Windows\\CurrentVersion\\Run"},
      {"APP", ScanPathKey, HKEY_LOCAL_MACHINE,
       "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths"},
      {"UNINSTALL", ScanUninstallKey, HKEY_LOCAL_MACHINE,
       "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall"},
      {"HELP", ScanPathKey, HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Windows\\Help"},
      {"HELP", ScanPathKey, HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Windows\\HTML Help"},
  };
  return kWalks;
}

// Whether what lies there is not known, rather than missing.
bool IsOutOfReach(int folder) {
  constexpr HRESULT kNotReady = static_cast<HRESULT>(0x80070000U | ERROR_NOT_READY);
  constexpr HRESULT kAccessDenied = static_cast<HRESULT>(0x80070000U | ERROR_ACCESS_DENIED);
  std::array<char, MAX_PATH> path{};
  const HRESULT result = SHGetFolderPathA(nullptr, folder, nullptr, 0, path.data());
  return result == kNotReady || result == kAccessDenied;
}

bool CanOpen(HKEY hive, const char* key) {
  HKEY opened = nullptr;
  const LONG status = RegOpenKeyExA(hive, key, 0, KEY_READ, &opened);
  const UniqueKey owner(status == ERROR_SUCCESS ? opened : nullptr);
  return status != ERROR_ACCESS_DENIED;
}

}  // namespace

std::string WhyUnknown(std::string_view code) {
  if (code == "FONT" && IsOutOfReach(CSIDL_FONTS)) return "the folder of the fonts is out of reach";
  if (code == "SHORTCUTS" && IsOutOfReach(CSIDL_COMMON_STARTMENU) &&
      IsOutOfReach(CSIDL_STARTMENU) && IsOutOfReach(CSIDL_DESKTOP)) {
    return "start menu and desktop are out of reach";
  }
  for (const Walk& walk : Walks()) {
    if (walk.code != code) continue;
    // Of the merged classes those of the user hide the machine's.
    if (walk.hive == HKEY_CLASSES_ROOT && !CanOpen(HKEY_CURRENT_USER, "Software\\Classes")) {
      return "the user's classes can't be read";
    }
    if (!CanOpen(walk.hive, walk.key)) return "its keys can't be read";
  }
  return {};
}

void ScanKey(frmMain& window, std::string_view code) {
  window.pbarScan.SetMin(0);
  window.pbarScan.SetValue(0);
  window.pbarScan.SetMax(1);
  for (const Walk& walk : Walks()) {
    if (walk.code == code) walk.walker(window, walk.hive, walk.key);
  }
  if (code == "SHORTCUTS") window.ShortCuts();
}

}  // namespace tidemark
