#include "scan/results.h"

#include <array>
#include <cstdint>

#include "helpers/ignore_list.h"
#include "helpers/key_names.h"
#include "helpers/text_helpers.h"
#include "platform/program_start.h"

namespace tidemark {
namespace {

constexpr std::array<std::string_view, 13> kReasons = {
    "Invalid path",           "TypeLib empty", "Point to Invalid TypeLib",   "Empty CLSID",
    "Point to Invalid CLSID", "Empty ProgID",  "Point to Invalid ProgID",    "Empty InprocServer32",
    "Empty InprocServer",     "No data",       "Shared file doesn't exists", "Invalid Font",
    "No asscociation",
};

}  // namespace

void LoadReasons(frmMain& window) {
  window.Reasons = {};
  for (std::size_t index = 0; index < kReasons.size(); ++index) {
    window.Reasons[index] = kReasons[index];
  }
  window.message_texts = {
      "Stop",
      "&Scan",
      "Please select at least one registry location to scan.",
      "Total Invalid Entries: ",
      " problems have been found:",
      "Ignored Entries: ",
      "Scan now",
      "Are you sure you want to edit the selected location details in the list.",
      "Are you sure you want to remove the selected location(s) from the list.",
  };
}

void AddtoList(frmMain& window, HKEY hive, const std::string& key, const std::string& value_name,
               const std::string& value_data, DWORD type, std::string_view reason) {
  // The root's name is not part of what is matched: the text starts with a lone backslash, on
  // purpose.
  const std::string match = "\\" + key + " " + value_name + " " + value_data;
  if (IsInIngnoreList(window.IgnoreList, match)) return;

  AddFinding(window, {.location = std::string(HkeyText(hive)).append("\\").append(key),
                      .value_name = value_name,
                      .value_data = value_data,
                      .reason = reason,
                      .value_type = std::to_string(static_cast<std::int32_t>(type))});
}

void lvFound_Click(frmMain& window) {
  const ListItem* test = window.lvFound.SelectedItem();
  if (test == nullptr) return;
  window.lvProblems.Clear();
  for (int index = 1; index <= window.lvInvalidLoc.Count(); ++index) {
    const ListItem& finding = *window.lvInvalidLoc.Item(index);
    if (!(finding.SubItem(kTestCode) == test->Key())) continue;
    ListItem* row = window.lvProblems.Add(finding.Key(), finding.Caption());
    if (row == nullptr) continue;
    for (const int column : {kValueName, kValueData, kReason, kValueType}) {
      row->SetSubItem(column, finding.SubItem(column));
    }
    // The flag lands behind the column that is headed "Selected". On purpose: nothing reads it
    // there.
    row->SetSubItem(6, finding.SubItem(kSelected));
    row->SetChecked(finding.SubItem(kSelected) == "1");
  }
}

void lvProblems_ItemCheck(frmMain& window, const ListItem& item) {
  if (ListItem* finding = window.lvInvalidLoc.Item(item.Key().View())) {
    finding->SetSubItem(kSelected, item.Checked() ? "1" : "0");
  }
}

void lvProblems_MouseUp(frmMain& window) {
  const ListItem* selected = window.lvProblems.SelectedItem();
  if (window.lvProblems.Count() > 0 && selected != nullptr) {
    window.lvProblems.SetToolTipText(selected->SubItem(kValueData));
  }
}

void mnuOpenKey_Click(frmMain& window) {
  const ListItem* selected = window.lvProblems.SelectedItem();
  if (selected == nullptr) return;
  ListItem* finding = window.lvInvalidLoc.Item(selected->Key().View());
  if (finding == nullptr) return;
  window.lvInvalidLoc.Select(finding);
  window.lvInvalidLoc.DoubleClicked();
}

void lvInvalidLoc_ColumnClick(frmMain& window, int column) {
  window.lvInvalidLoc.SortInTurns(column);
}

void lvInvalidLoc_DblClick(frmMain& window) {
  const ListItem* selected = window.lvInvalidLoc.SelectedItem();
  if (selected == nullptr) return;
  const std::string keys = KeystrokesToKey(selected->Caption().View());
  StartProgram("REGEDIT", WindowStyle::kNormalFocus);
  SendKeystrokes(keys);
}

std::string KeystrokesToKey(std::string_view full_key) {
  // In two stages, so that the replacements do not act on one another.
  std::string keys = ReplaceAll(full_key, "{", "{{{");
  keys = ReplaceAll(keys, "}", "}}}");
  keys = ReplaceAll(keys, "{{{", "{{}");
  keys = ReplaceAll(keys, "}}}", "{}}");
  return ReplaceAll(keys, "\\", "{RIGHT}");
}

}  // namespace tidemark
