// The walkers of file associations.
#include "platform/winapi.h"
#include "registry/mdlRegistry.h"
#include "scan/results.h"
#include "scan/walk.h"
#include "scan/walkers.h"
#include "window/run.h"

namespace tidemark {

void ScanAssocRoot(frmMain& window, HKEY hive, const std::string& key) {
  if (MustEnd(window) || IsInClassTree(key)) return;
  const WalkedKey walked(hive, key);
  window.pbarScan.SetMax(static_cast<int>(walked.sub_keys));
  window.pbarScan.SetValue(0);
  for (DWORD index = 0; index < walked.sub_keys; ++index) {
    const std::string name = walked.SubKeyName(index);
    if (name.starts_with('.')) {
      const std::string file_type = RegDataText(GetRegData(hive, name, ""));
      if (!file_type.empty()) {
        ScanAssocKey(window, hive, name);
        ScanAssocKey(window, hive, file_type);
      }
    }
    window.pbarScan.SetValue(static_cast<int>(index));
    if (YieldAndTestStop(window)) {
      window.pbarScan.SetValue(window.pbarScan.Max());
      return;
    }
  }
}

void ScanAssocKey(frmMain& window, HKEY hive, const std::string& key) {
  if (MustEnd(window) || IsInClassTree(key)) return;
  WalkedKey walked(hive, key);
  // A file type that is missing counts as empty.
  if (key.find('\\') == std::string::npos && walked.sub_keys == 0 && walked.values == 0) {
    AddtoList(window, hive, key, "", "", REG_SZ, window.Reasons[kNoAssociation]);
    walked.handle.Release();  // an empty key stays open, on purpose
    return;
  }
  for (DWORD index = 0; index < walked.values; ++index) {
    const WalkedValue value(walked, index);
    UpdStatus(window, key, value.name);
    if (value.is_there && IsInvalidPath(value.data)) {
      AddtoList(window, hive, key, value.name, value.data, value.type,
                window.Reasons[kInvalidPath]);
    }
    if (YieldAndTestStop(window)) return;
  }
  for (DWORD index = 0; index < walked.sub_keys; ++index) {
    const std::string name = walked.SubKeyName(index);
    if (!name.empty()) ScanAssocKey(window, hive, ChildPath(key, name));
    if (YieldAndTestStop(window)) return;
  }
}

}  // namespace tidemark
