// The walkers that judge paths in values: anywhere, in uninstall entries, shared files, fonts.
#include "helpers/check_valid.h"
#include "helpers/system_helpers.h"
#include "helpers/text_helpers.h"
#include "platform/letter_case.h"
#include "registry/mdlRegistry.h"
#include "scan/results.h"
#include "scan/walk.h"
#include "scan/walkers.h"
#include "window/run.h"

namespace tidemark {

void ScanPathKey(frmMain& window, HKEY hive, const std::string& key) {
  if (MustEnd(window)) return;
  const WalkedKey walked(hive, key);
  RaiseMaximum(window, walked.sub_keys + walked.values);
  for (DWORD index = 0; index < walked.values; ++index) {
    const WalkedValue value(walked, index);
    UpdStatus(window, key, value.name);
    if (value.is_there && IsInvalidPath(value.data)) {
      AddtoList(window, hive, key, value.name, value.data, value.type,
                window.Reasons[kInvalidPath]);
    }
    StepBar(window);
    if (YieldAndTestStop(window)) return;
  }
  for (DWORD index = 0; index < walked.sub_keys; ++index) {
    const std::string name = walked.SubKeyName(index);
    // Such a sub-key is not entered; the values of a key that was reached are all examined.
    if (!name.empty() && UpperCase(name).find("MSTCP") == std::string::npos) {
      ScanPathKey(window, hive, ChildPath(key, name));
    }
    StepBar(window);
    if (YieldAndTestStop(window)) return;
  }
}

void ScanUninstallKey(frmMain& window, HKEY hive, const std::string& key) {
  if (MustEnd(window)) return;
  const WalkedKey walked(hive, key);
  RaiseMaximum(window, walked.sub_keys);
  for (DWORD index = 0; index < walked.sub_keys; ++index) {
    const std::string name = walked.SubKeyName(index);
    UpdStatus(window, AddBackslash(key), name);  // which shows two backslashes, on purpose
    if (!name.empty()) {
      const std::string full = ChildPath(key, name);
      const std::string data = GetRegString(hive, full, "UnInstallString", "noreg");
      // The value's type is not known here, and the row says 0.
      if (IsInvalidPath(data)) {
        AddtoList(window, hive, full, "UnInstallString", data, 0, window.Reasons[kInvalidPath]);
      }
    }
    StepBar(window);
    if (YieldAndTestStop(window)) return;
  }
}

void ScanSharedDllKey(frmMain& window, HKEY hive, const std::string& key) {
  if (MustEnd(window)) return;
  WalkedKey walked(hive, key);
  RaiseMaximum(window, walked.sub_keys + walked.values);
  for (DWORD index = 0; index < walked.values; ++index) {
    WalkedValue value(walked, index);
    UpdStatus(window, key, value.name);
    StripNull(value.name);
    if (value.is_there && !TrimBlanks(value.name).empty() && !CheckValid(value.name)) {
      AddtoList(window, hive, key, value.name, value.data, value.type,
                window.Reasons[kSharedFileMissing]);
    }
    StepBar(window);
    if (YieldAndTestStop(window)) return;
  }
  for (DWORD index = 0; index < walked.sub_keys; ++index) {
    const std::string name = walked.SubKeyName(index);
    if (!name.empty()) ScanSharedDllKey(window, hive, ChildPath(key, name));
    StepBar(window);
    if (YieldAndTestStop(window)) return;
  }
  walked.handle.Release();  // a walk that was not stopped leaves the key open, on purpose
}

void ScanFontKey(frmMain& window, HKEY hive, const std::string& key) {
  if (MustEnd(window)) return;
  window.front_end.DoEvents();
  if (IsInClassTree(key)) return;
  const WalkedKey walked(hive, key);
  if (!walked.handle) return;
  const std::string fonts = AddBackslash(GetSpecialFolderPath(CSIDL_FONTS));
  RaiseMaximum(window, walked.sub_keys + walked.values);
  for (DWORD index = 0; index < walked.values; ++index) {
    const WalkedValue value(walked, index);
    if (value.is_there && !value.data.empty() && !CheckValid(fonts + value.data)) {
      AddtoList(window, hive, key, value.name, value.data, value.type,
                window.Reasons[kInvalidFont]);
    }
    StepBar(window);
    if (MustEnd(window)) return;
  }
  for (DWORD index = 0; index < walked.sub_keys; ++index) {
    const std::string name = walked.SubKeyName(index);
    if (!name.empty()) ScanFontKey(window, hive, ChildPath(key, name));
    StepBar(window);
    if (MustEnd(window)) return;
  }
}

}  // namespace tidemark
