// The programs that start with Windows: the trade's way in. lvPrograms lists them from eleven
// sources; a tick is whether a program runs. What is not ticked stands in a disabled store that
// belongs to its source: a twin key whose path begins with "-", a section of win.ini, a folder in
// the program's own directory.
#pragma once

#include <string>

#include "platform/winapi.h"
#include "window/frmMain.h"

namespace tidemark {

// Columns of lvPrograms behind the name.
enum ProgramColumn : int {
  kCommand = 1,
  kExists = 2,    // "Yes" or "No": whether the command names something that is there
  kLocation = 3,  // a label; root, path, section and folder follow from it
  kEnabled = 4,   // "Enabled" or "Disabled"
  kKind = 5,      // "Reg", "Lnk" or "File"
};

// Fills the list anew from all sources.
void loadPrograms(frmMain& window);

// Adds one row: the only way in which the sources reach the list.
void AddtoRunList(frmMain& window, const std::string& name, const std::string& command,
                  const std::string& location, bool enabled, const std::string& kind);

// The root of a location's registry key: the machine's for a label with "All" in it, in any letter
// case, else the user's.
HKEY GetHKey(std::string_view location);
// Its path; empty for a location that is no registry key.
std::string GetSubKey(std::string_view location);

// The list's background, by the number of its rows.
void ShowStartupBackground(frmMain& window);

// The selected row's command becomes the list's tool tip.
void lvPrograms_MouseUp(frmMain& window);
// Offers to write the selected row's entry back, or to delete it.
void lvPrograms_ContextMenu(frmMain& window);
// Whether writing the row's entry back writes what stands there: a link, or a registry value whose
// text is the row's command. An expandable text has no command, and would be emptied.
bool CanWriteBack(const ListItem& program);
// Both ask first.
void mnuAddNew_Click(frmMain& window);
void mnuDeleteProgram_Click(frmMain& window);

// A person has ticked or cleared a row: carries its entry between the source and the disabled
// store. A failure is told; the tick stays as the person set it.
void EnabledDisableProgram(frmMain& window, ListItem& program);

// Move a registry value from its key to the twin key and back, with its own type and bytes: an
// expandable text has no command in the list and comes back as it was all the same. False, and a
// message, when the value could not be written; it then stays where it was.
bool DisableProgram(frmMain& window, HKEY root, const std::string& path, const std::string& name,
                    const std::string& command);
bool EnableProgram(frmMain& window, HKEY root, const std::string& path, const std::string& name,
                   const std::string& command);
// Always false, and nobody asks.
bool DeleteItem(HKEY root, const std::string& path, const std::string& name);

// Writes the row's entry into its live source, and fills the list anew.
void AddNew(frmMain& window, const ListItem& program);
// Removes the entry from where its tick says that it is, without a question, and fills the list
// anew.
void DeleteProgram(frmMain& window, const ListItem& program);

}  // namespace tidemark
