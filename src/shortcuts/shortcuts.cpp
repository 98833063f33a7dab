#include "shortcuts/shortcuts.h"

#include <array>

#include "helpers/ignore_list.h"
#include "helpers/modShortcut.h"
#include "helpers/system_helpers.h"
#include "platform/file_system_object.h"
#include "platform/folder_search.h"
#include "platform/letter_case.h"
#include "platform/unicode.h"
#include "window/findings.h"
#include "window/run.h"

namespace tidemark {
namespace {

constexpr std::array kRoots = {CSIDL_COMMON_STARTMENU, CSIDL_STARTMENU, CSIDL_DESKTOP};
constexpr const char* kPattern = "*.lnk";

bool IsFull(const XP_ProgressBar& bar) { return bar.Value() >= bar.Max(); }

void Advance(XP_ProgressBar& bar) { bar.SetValue(bar.Value() + 1); }

void ScanSubFolder(frmMain& window, const std::string& folder, const std::string& name) {
  const std::string path = folder + name;
  // The system's restore store is not entered, nor is any folder below or beside it whose path
  // holds the words.
  if (UpperCase(path).find("SYSTEM VOLUME") == std::string::npos) {
    Advance(window.pbarScan);
    std::string sub_folder = path;
    ScanShortCut(window, sub_folder);
    UpdStatus(window, "Scaning Folder:" + folder, name);
  }
  window.front_end.DoEvents();
}

void ScanFile(frmMain& window, const std::string& folder, const std::string& name) {
  if (PathMatchSpecA(name.c_str(), kPattern) != FALSE) {
    UpdStatus(window, "Scaning Folder:" + folder, name);
    CheckShortCut(window, folder + name);
  }
  Advance(window.pbarScan);
}

}  // namespace

void ShortCuts(frmMain& window) {
  window.pbarScan.SetMax(100);
  window.pbarScan.SetValue(0);
  for (const int root : kRoots) {
    std::string folder = GetSpecialFolderPath(root);
    ScanShortCut(window, folder);
  }
  window.pbarScan.SetValue(window.pbarScan.Max());
}

void ScanShortCut(frmMain& window, std::string& folder) {
  folder = AddBackslash(folder);
  FolderSearch found(folder + "*.*");
  // The first status has a blank behind its colon, the later ones have none. On purpose.
  UpdStatus(window, "Scaning Folder: " + folder, "");
  if (window.pbarScan.Value() == window.pbarScan.Max()) window.pbarScan.SetValue(0);
  while (found) {
    if (found->name != "." && found->name != "..") {
      if (MeansANamesake(found->name)) {
        Advance(window.pbarScan);
      } else if ((found->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        ScanSubFolder(window, folder, found->name);
      } else {
        ScanFile(window, folder, found->name);
      }
    }
    found.Next();
    window.front_end.DoEvents();
    if (MustEnd(window)) return;
    // The bar wraps round and tells nothing of the real progress. On purpose.
    if (IsFull(window.pbarScan)) window.pbarScan.SetValue(0);
  }
}

void CheckShortCut(frmMain& window, const std::string& link_file) {
  Shortcut link;
  ReadShortcut(link_file, link);
  // One look answers what IsExistingFolder and IsExistingFile would: neither says yes. A target
  // that did not come through whole is no target that is gone.
  if (!link.target.empty() && !HasReplacementCharacter(link.target) &&
      FileSystemObject().KindOf(link.target) == FileSystemObject::Kind::kMissing) {
    AddshtoList(window, link_file, link.target, link.name, link.arguments);
  }
  window.front_end.DoEvents();
}

void AddshtoList(frmMain& window, const std::string& link_file, const std::string& target,
                 const std::string& name, const std::string& /*arguments*/) {
  if (IsInIngnoreList(window.IgnoreList, name + " " + target + " " + link_file)) return;
  AddFinding(window, {.location = link_file,
                      .value_name = name,
                      .value_data = target,
                      .reason = "Target not valid",
                      .value_type = ""});
}

}  // namespace tidemark
