#include "window/findings.h"

#include "helpers/text_helpers.h"
#include "window/finding_columns.h"
#include "window/run.h"

namespace tidemark {

void AddFinding(frmMain& window, const NewFinding& finding) {
  if (IsOvertaken(window)) return;
  ListView& findings = window.lvInvalidLoc;
  if (ListItem* row = findings.Add("K" + std::to_string(findings.Count() + 1), finding.location)) {
    row->SetSubItem(kValueName, finding.value_name);
    row->SetSubItem(kValueData, finding.value_data);
    row->SetSubItem(kReason, finding.reason);
    row->SetSubItem(kValueType, finding.value_type);
    row->SetSubItem(kSelected, "1");
    row->SetSubItem(kTestCode, window.CurrentLocation);
  }
  ++window.ProblemCount;
  if (ListItem* status = window.lvScan.Item(window.CurrentLocation)) {
    status->SetSubItem(2, WholeNumberText(LeadingNumber(status->SubItem(2).View()) + 1));
  }
  window.front_end.DoEvents();
}

void UpdStatus(frmMain& window, std::string_view a, std::string_view b) {
  std::string text;
  text.reserve(a.size() + 1 + b.size());
  window.lblstatus.SetCaption(text.append(a).append("\\").append(b));
  window.front_end.DoEvents();
}

}  // namespace tidemark
