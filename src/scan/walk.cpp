#include "scan/walk.h"

#include "helpers/check_valid.h"
#include "helpers/system_helpers.h"
#include "helpers/text_helpers.h"
#include "platform/letter_case.h"
#include "registry/mdlRegistry.h"
#include "window/run.h"

namespace tidemark {

WalkedKey::WalkedKey(HKEY hive, const std::string& key) : handle(OpenRegKey(hive, key)) {
  GetRegKeyInfo(handle.Get(), sub_keys, values);
}

std::string WalkedKey::SubKeyName(DWORD index) const {
  std::string name = EnumRegKey(handle.Get(), index);
  return std::string(TrimBlanks(StripNull(name)));
}

WalkedValue::WalkedValue(const WalkedKey& key, DWORD index) {
  EnumRegValue(key.handle.Get(), index, name, data, type);
  is_there = name.ends_with('\0');
}

std::string ChildPath(const std::string& key, const std::string& name) {
  return AddBackslash(key).append(name);
}

bool HoldsPathToCheck(std::string_view data) {
  constexpr std::string_view kWalkedDrives = "ABCDEFGHIJKLMNOP";
  const std::size_t colon = data.find(":\\");
  if (colon == std::string_view::npos) return false;
  // With nothing in front of the colon there is no letter to test, and the data counts as a path.
  return colon == 0 || StartsWithLetterOf(data.substr(colon - 1), kWalkedDrives);
}

bool IsInvalidPath(const std::string& data) { return HoldsPathToCheck(data) && !CheckValid(data); }

bool IsInClassTree(std::string_view key) {
  const std::string capitals = UpperCase(key);
  return capitals.find("SOFTWARE\\CLASSES") != std::string::npos || capitals == "INTERFACE" ||
         capitals == "TYPELIB" || capitals == "CLSID";
}

std::string CapitalLeaf(std::string_view key) {
  const std::size_t backslash = key.rfind('\\');
  return UpperCase(backslash == std::string_view::npos ? key : key.substr(backslash + 1));
}

void RaiseMaximum(frmMain& window, DWORD by) {
  window.pbarScan.SetMax(window.pbarScan.Max() + static_cast<int>(by));
}

void StepBar(frmMain& window) { window.pbarScan.SetValue(window.pbarScan.Value() + 1); }

bool YieldAndTestStop(frmMain& window) {
  window.front_end.DoEvents();
  return MustEnd(window);
}

}  // namespace tidemark
