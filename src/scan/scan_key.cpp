#include <vector>

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

}  // namespace

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
