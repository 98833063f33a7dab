// The list of the programs that start with Windows, filled from its eleven sources.
#include <string>

#include "helpers/check_valid.h"
#include "helpers/modShortcut.h"
#include "helpers/text_helpers.h"
#include "platform/letter_case.h"
#include "registry/ini_access.h"
#include "registry/mdlRegistry.h"
#include "startup/startup.h"
#include "startup/startup_page.h"
#include "startup/startup_records.h"
#include "startup/startup_sources.h"

namespace tidemark {
namespace {

void ListKey(frmMain& window, const std::string& location, const std::string& path, bool enabled) {
  // The key is left open, on purpose: nothing holds it past this call.
  const HKEY key = OpenRegKey(GetHKey(location), path);
  const DWORD values = CountRegItems(key, RegItems::kValues);
  for (DWORD index = 0; index < values; ++index) {
    const std::string name = EnumRegValueName(key, index);
    // It is gone, or its name does not fit: not the default value, whose name is the NUL alone.
    if (!name.ends_with('\0')) continue;
    AddtoRunList(window, name, GetOpenKeyString(key, name), location, enabled, "Reg");
  }
}

void LoadRegistrySource(frmMain& window, const RegistrySource& source) {
  const std::string location(source.location);
  const std::string path = GetSubKey(location);
  ListKey(window, location, path, true);
  ListKey(window, location, TwinKey(path), false);
}

// What stands in front of the first "." of the last piece of a path.
std::string ProgramName(const std::string& command) {
  const auto pieces = Split(command, '\\');
  if (pieces.empty()) return {};
  const auto parts = Split(pieces.back(), '.');
  return parts.empty() ? std::string() : parts.front();
}

void ListIniKey(frmMain& window, const char* location, const char* section, const char* key,
                bool enabled) {
  const std::string command = ReadIniValue(section, key, WinIniFile());
  if (command.empty() || command == "No") return;
  AddtoRunList(window, ProgramName(command), command, location, enabled, "File");
}

void LoadWinIni(frmMain& window, const char* location, const char* key) {
  ListIniKey(window, location, kEnabledSection, key, true);
  ListIniKey(window, location, kDisabledSection, key, false);
}

void ListFile(frmMain& window, const std::string& folder, const std::string& name,
              const char* location, bool enabled) {
  if (!UpperCase(TrimBlanks(name)).ends_with(".LNK")) {
    AddtoRunList(window, name, name, location, enabled, "File");
    return;
  }
  Shortcut link;
  ReadShortcut(folder + "\\" + name, link);
  AddtoRunList(window, link.name, link.target, location, enabled, "Lnk");
}

// The file list keeps the pattern "*.reg" of the Backups tab, on purpose. A folder that is missing
// leaves it where it was, and what stands there is listed once more.
void ListFolder(frmMain& window, const std::string& folder, const char* location, bool enabled) {
  window.File1.SetPath(folder);
  window.File1.Refresh();
  for (int index = 0; index < window.File1.ListCount(); ++index) {
    ListFile(window, folder, window.File1.List(index), location, enabled);
  }
}

void LoadStartupFolder(frmMain& window, const char* location) {
  const std::string live = LiveFolder(location);
  if (!live.empty()) ListFolder(window, live, location, true);
  ListFolder(window, StoreFolder(window, location), location, false);
}

}  // namespace

void loadPrograms(frmMain& window) {
  ListView& list = window.lvPrograms;
  list.Clear();
  for (const RegistrySource& source : kRegistrySources) LoadRegistrySource(window, source);
  LoadWinIni(window, kWinIniLoad, "Load");
  LoadWinIni(window, kWinIniRun, "Run");
  LoadStartupFolder(window, kStartupAllUsers);
  LoadStartupFolder(window, kStartupCurrentUser);
  for (int index = 1; index <= list.Count(); ++index) {
    if (list.Item(index)->SubItem(kEnabled) == kEnabledText) list.Item(index)->SetChecked(true);
  }
  ShowStartupBackground(window);
  MarkPrograms(window);
}

void AddtoRunList(frmMain& window, const std::string& name, const std::string& command,
                  const std::string& location, bool enabled, const std::string& kind) {
  ListItem* row = window.lvPrograms.Add({}, name);
  row->SetSubItem(kCommand, command);
  row->SetSubItem(kExists, CheckValid(command) ? "Yes" : "No");
  row->SetSubItem(kLocation, location);
  row->SetSubItem(kEnabled, enabled ? kEnabledText : kDisabledText);
  row->SetSubItem(kKind, kind);
}

void ShowStartupBackground(frmMain& window) {
  constexpr int kTopLeft = 0;
  constexpr int kTiled = 5;
  constexpr int kMostPictures = 12;
  const int rows = window.lvPrograms.Count();
  const std::string number = rows > kMostPictures ? "6Plus" : std::to_string(rows);
  window.lvPrograms.LoadPicture(window.application.folder + "\\images\\chk_Problems" + number +
                                ".jpg");
  window.lvPrograms.SetPictureAlignment(rows >= 1 && rows <= kMostPictures ? kTopLeft : kTiled);
}

void lvPrograms_MouseUp(frmMain& window) {
  const ListItem* selected = window.lvPrograms.SelectedItem();
  if (selected != nullptr) window.lvPrograms.SetToolTipText(selected->SubItem(kCommand));
}

void lvPrograms_ContextMenu(frmMain& window) {
  const ListItem* selected = window.lvPrograms.SelectedItem();
  window.mnuAddNew.SetEnabled(selected != nullptr && CanWriteBack(*selected));
  window.mnuDeleteProgram.SetEnabled(selected != nullptr);
  window.mnuPutBack.SetEnabled(HasStartupRecords(window));
  if (selected != nullptr || window.mnuPutBack.Enabled()) {
    window.front_end.PopupMenu(window.mnuPrograms);
  }
}

}  // namespace tidemark
