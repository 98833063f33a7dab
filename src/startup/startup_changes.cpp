// Switching the programs that start with Windows off and on, adding and deleting them.
#include <string>

#include "helpers/modShortcut.h"
#include "helpers/system_helpers.h"
#include "platform/file_system_object.h"
#include "registry/exact_registry.h"
#include "registry/ini_access.h"
#include "registry/mdlRegistry.h"
#include "startup/startup.h"
#include "startup/startup_records.h"
#include "startup/startup_sources.h"

namespace tidemark {
namespace {

// A row's fields, which outlive the row.
struct Entry {
  explicit Entry(const ListItem& row)
      : name(row.Caption().String()),
        command(row.SubItem(kCommand).String()),
        exists(row.SubItem(kExists).String()),
        location(row.SubItem(kLocation).String()),
        kind(row.SubItem(kKind).String()),
        ticked(row.Checked()) {}

  bool IsInStartupFolder() const {
    return (kind == "File" || kind == "Lnk") &&
           (location == kStartupAllUsers || location == kStartupCurrentUser);
  }
  std::string FileName() const { return kind == "Lnk" ? name + ".lnk" : name; }
  bool operator==(const Entry&) const = default;

  std::string name, command, exists, location, kind;
  bool ticked;
};

// The rules of the two keys of win.ini: where an entry goes when it is disabled, and what is said
// when that fails. They are not alike, on purpose: an entry of Load goes to a section that nothing
// reads.
struct IniRule {
  const char* location;
  const char* key;
  const char* disabled_section;
  const char* failure_title;
};
constexpr IniRule kIniRules[] = {
    {kWinIniRun, "Run", kDisabledSection, "Program can not be disabled"},
    {kWinIniLoad, "Load", "SM_DisabledWindows", "Program can't be disabled"},
};

const IniRule* FindIniRule(const Entry& entry) {
  if (entry.kind != "File") return nullptr;
  for (const IniRule& rule : kIniRules) {
    if (entry.location == rule.location) return &rule;
  }
  return nullptr;
}

void Complain(frmMain& window, const char* text, const char* title) {
  window.front_end.ShowMessage(text, title, MessageIcon::kCritical);
}

// An expandable text, and whatever else has no command, moves with its type and bytes; so does what
// the row shows, with what its text could not hold. Another text that has taken its place does not.
// Where there is neither a value nor a command nothing can be moved.
bool Move(HKEY root, const std::string& from, const std::string& to, const std::string& name,
          const std::string& command) {
  ExactKey key;
  ExactValue value;
  const bool there =
      ExactKey::Open(root, from, key) == ERROR_SUCCESS && key.Read(name, value) == ERROR_SUCCESS;
  DWORD disposition = 0;
  if (there && (value.type != REG_SZ || command.empty() ||
                GetOpenKeyString(key.Handle(), name) == command)) {
    ExactKey target;
    if (ExactKey::Create(root, to, target) != ERROR_SUCCESS) return false;
    if (target.Write(name, value) != ERROR_SUCCESS) return false;
  } else if (command.empty() || !WriteRegValue(root, to, name, command, REG_SZ, disposition)) {
    return false;
  }
  DeleteItem(root, from, name);
  return true;
}

void SwitchRegistryEntry(frmMain& window, ListItem& row, const Entry& entry) {
  const HKEY root = GetHKey(entry.location);
  const std::string path = GetSubKey(entry.location);
  if (entry.ticked) {
    if (!EnableProgram(window, root, path, entry.name, entry.command)) return;
  } else {
    if (!DisableProgram(window, root, path, entry.name, entry.command)) return;
  }
  row.SetSubItem(kEnabled, entry.ticked ? kEnabledText : kDisabledText);
}

// What is written is the word of the column "Exists", not the command. On purpose.
void SwitchIniEntry(frmMain& window, ListItem& row, const Entry& entry, const IniRule& rule) {
  const std::string file = WinIniFile();
  StartupRecord record(window, entry.name, entry.location);
  record.KeepIniValues(rule.key,
                       {kEnabledSection, entry.ticked ? kDisabledSection : rule.disabled_section});
  if (entry.ticked) {
    if (!WriteIniValue(kEnabledSection, rule.key, entry.exists, file)) {
      Complain(window, "Unable to set program", "Program not added to Win.ini");
      return;
    }
    WriteIniValue(kDisabledSection, rule.key, "", file);
  } else {
    if (!WriteIniValue(rule.disabled_section, rule.key, entry.exists, file)) {
      Complain(window, "Unable to disable program", rule.failure_title);
      return;
    }
    WriteIniValue(kEnabledSection, rule.key, "", file);
  }
  row.SetSubItem(kEnabled, entry.ticked ? kEnabledText : kDisabledText);
}

// Copies, then deletes, with no test between: a file whose copy failed is gone. On purpose.
void SwitchFile(frmMain& window, ListItem& row, const Entry& entry) {
  const std::string live = AddBackslash(LiveFolder(entry.location)) + entry.FileName();
  const std::string store = StoreFolder(window, entry.location) + "\\" + entry.FileName();
  const std::string& from = entry.ticked ? store : live;
  FileSystemObject files;
  files.CopyFile(from, entry.ticked ? live : store);
  files.DeleteFile(from, false);
  row.SetSubItem(kEnabled, entry.ticked ? kEnabledText : kDisabledText);
}

void WriteRegistryEntry(frmMain& window, const Entry& entry) {
  const HKEY root = GetHKey(entry.location);
  const std::string path = GetSubKey(entry.location);
  DWORD type = 0;
  if (SetRegValue(root, path, entry.name, entry.command, type) == ERROR_SUCCESS) return;
  DWORD disposition = 0;
  if (WriteRegValue(root, path, entry.name, entry.command, REG_SZ, disposition)) return;
  Complain(window, "Unable to add new item", "New item creation failour");
}

void WriteLink(frmMain& window, const Entry& entry) {
  std::string file = AddBackslash(LiveFolder(entry.location)) + entry.name + ".lnk";
  const NewShortcut link{.target = entry.command, .description = entry.name};
  if (WriteShortcut(window.front_end, file, AskBeforeReplacing::kYes, link)) return;
  Complain(window, "Unable to add new item", "New item creation failour");
}

// The selected row, after a yes; null otherwise, and where another row stands in its place since:
// the list may be filled anew while the question is open.
const ListItem* AskAboutSelected(frmMain& window, const char* question) {
  const ListItem* program = window.lvPrograms.SelectedItem();
  if (program == nullptr) return nullptr;
  const Entry asked(*program);
  const std::string text = question + ("\r\n" + asked.name + "\r\n" + asked.location);
  if (!window.front_end.AskYesNo(text, window.application.title)) return nullptr;
  program = window.lvPrograms.SelectedItem();
  return program != nullptr && Entry(*program) == asked ? program : nullptr;
}

}  // namespace

void EnabledDisableProgram(frmMain& window, ListItem& program) {
  const Entry entry(program);
  if (entry.kind == "Reg") {
    SwitchRegistryEntry(window, program, entry);
  } else if (const IniRule* rule = FindIniRule(entry)) {
    SwitchIniEntry(window, program, entry, *rule);
  } else if (entry.IsInStartupFolder()) {
    SwitchFile(window, program, entry);
  }
}

bool DisableProgram(frmMain& window, HKEY root, const std::string& path, const std::string& name,
                    const std::string& command) {
  if (Move(root, path, TwinKey(path), name, command)) return true;
  Complain(window, "Unable to disable this program", "Program not disabled");
  return false;
}

bool EnableProgram(frmMain& window, HKEY root, const std::string& path, const std::string& name,
                   const std::string& command) {
  if (Move(root, TwinKey(path), path, name, command)) return true;
  Complain(window, "Unable to enable this program", "Program not enabled");
  return false;
}

bool DeleteItem(HKEY root, const std::string& path, const std::string& name) {
  DeleteRegValue(root, path, name);
  return false;
}

void AddNew(frmMain& window, const ListItem& program) {
  const Entry entry(program);
  if (entry.kind == "Reg") {
    WriteRegistryEntry(window, entry);
  } else if (entry.kind == "Lnk") {
    WriteLink(window, entry);
  }
  loadPrograms(window);
}

void DeleteProgram(frmMain& window, const ListItem& program) {
  const Entry entry(program);
  StartupRecord record(window, entry.name, entry.location);
  if (entry.kind == "Reg") {
    const HKEY root = GetHKey(entry.location);
    const std::string live = GetSubKey(entry.location);
    const std::string path = entry.ticked ? live : TwinKey(live);
    record.KeepValue(root, path, entry.name);
    DeleteItem(root, path, entry.name);
  } else if (const IniRule* rule = FindIniRule(entry)) {
    const char* section = entry.ticked ? kEnabledSection : kDisabledSection;
    record.KeepIniValues(rule->key, {section});
    WriteIniValue(section, rule->key, "", WinIniFile());
  } else if (entry.IsInStartupFolder()) {
    const std::string folder =
        entry.ticked ? LiveFolder(entry.location) : StoreFolder(window, entry.location);
    const std::string file = AddBackslash(folder) + entry.FileName();
    record.KeepFile(file);
    FileSystemObject().DeleteFile(file, false);
  }
  record.Deleted();
  loadPrograms(window);
}

bool CanWriteBack(const ListItem& program) {
  const Entry entry(program);
  if (entry.kind != "Reg") return entry.kind == "Lnk";
  const std::string live = GetSubKey(entry.location);
  ExactKey key;
  ExactValue value;
  return ExactKey::Open(GetHKey(entry.location), entry.ticked ? live : TwinKey(live), key) ==
             ERROR_SUCCESS &&
         key.Read(entry.name, value) == ERROR_SUCCESS && value.type == REG_SZ &&
         GetOpenKeyString(key.Handle(), entry.name) == entry.command;
}

void mnuAddNew_Click(frmMain& window) {
  const ListItem* program =
      AskAboutSelected(window, "Are you sure you want to write this entry back?");
  if (program != nullptr && CanWriteBack(*program)) AddNew(window, *program);
}

void mnuDeleteProgram_Click(frmMain& window) {
  const ListItem* program = AskAboutSelected(window, "Are you sure you want to delete this entry?");
  if (program != nullptr) DeleteProgram(window, *program);
}

}  // namespace tidemark
