#include "scan/locations.h"

#include <string>
#include <vector>

#include "helpers/diagnostic_tests.h"
#include "helpers/text_helpers.h"
#include "registry/stored_settings.h"
#include "scan/scan.h"

namespace tidemark {
namespace {

constexpr const char* kAllChecked = "1;1;1;1;1;1;1;1;1;1;1;1";

}  // namespace

void LoadLocations(frmMain& window) {
  std::vector<std::string> states = Split(Setting("LocState", kAllChecked), ';');
  if (states.size() != kDiagnosticTests.size()) states = Split(kAllChecked, ';');
  window.lvLocations.Clear();
  for (std::size_t index = 0; index < kDiagnosticTests.size(); ++index) {
    const DiagnosticTest& test = kDiagnosticTests[index];
    ListItem* row = window.lvLocations.Add(test.code, test.name);
    row->SetChecked(NumberOf(states[index]) == 1);
    row->SetSubItem(1, test.description);
  }
}

void ShowUnknownTests(frmMain& window) {
  for (int index = 1; index <= window.lvLocations.Count(); ++index) {
    ListItem& row = *window.lvLocations.Item(index);
    const std::string why = WhyUnknown(row.Key().View());
    if (!why.empty()) row.SetSubItem(1, "Not run: " + why);
  }
}

void SaveLocations(frmMain& window) {
  std::string names;
  std::string descriptions;
  std::string states;
  for (int index = 1; index <= window.lvLocations.Count(); ++index) {
    const ListItem& row = *window.lvLocations.Item(index);
    names.append(row.Caption().View()).append(";");
    descriptions.append(row.SubItem(1).View()).append(";");
    states.append(row.Checked() ? "1;" : "0;");
  }
  SaveSetting("Locations", WithoutLastSeparator(names));
  SaveSetting("LocDesc", WithoutLastSeparator(descriptions));
  SaveSetting("LocState", WithoutLastSeparator(states));
}

void chkSelectAll_Click(frmMain& window) {
  const bool checked = window.chkSelectAll.Value() == 1;
  for (int index = 1; index <= window.lvLocations.Count(); ++index) {
    window.lvLocations.Item(index)->SetChecked(checked);
  }
  SaveLocations(window);
  SaveSetting("SelectAllLoc", std::to_string(window.chkSelectAll.Value()));
}

}  // namespace tidemark
