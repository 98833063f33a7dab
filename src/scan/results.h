// The results of a scan: every finding is one row of lvInvalidLoc, and that row is the record that
// the repair reads; lvFound and lvProblems are derived from it for the results page.
#pragma once

#include <string>
#include <string_view>

#include "platform/winapi.h"
#include "window/finding_columns.h"
#include "window/findings.h"
#include "window/frmMain.h"

namespace tidemark {

// Indexes into frmMain::Reasons; what lies between and behind is raised by nothing.
enum ReasonIndex : std::size_t {
  kInvalidPath = 0,
  kInvalidTypeLib = 2,
  kEmptyClsid = 3,
  kInvalidProgId = 6,
  kEmptyInprocServer32 = 7,
  kEmptyInprocServer = 8,
  kSharedFileMissing = 10,
  kInvalidFont = 11,
  kNoAssociation = 12,
};

// Fills Reasons and the texts beside it.
void LoadReasons(frmMain& window);

// Adds one finding of the test in work and counts it; adds none, and leaves no trace, when the
// ignore list holds it. Yields.
void AddtoList(frmMain& window, HKEY hive, const std::string& key, const std::string& value_name,
               const std::string& value_data, DWORD type, std::string_view reason);

// Fills lvProblems with the findings of the test that is selected in lvFound.
void lvFound_Click(frmMain& window);
// Writes a tick of lvProblems back to the finding.
void lvProblems_ItemCheck(frmMain& window, const ListItem& item);
// The selected row's value data becomes the list's tool tip.
void lvProblems_MouseUp(frmMain& window);
// Opens the registry editor on the selected finding's key, as a double click on the finding's row
// of lvInvalidLoc would.
void mnuOpenKey_Click(frmMain& window);
// Sorts by the column (from 1), ascending first, then in turns.
void lvInvalidLoc_ColumnClick(frmMain& window, int column);
// Opens the registry editor on the selected finding's key.
void lvInvalidLoc_DblClick(frmMain& window);

// The keystrokes that walk the registry editor's tree to a key: braces as literal characters, a
// step to the right for each backslash.
std::string KeystrokesToKey(std::string_view full_key);

}  // namespace tidemark
