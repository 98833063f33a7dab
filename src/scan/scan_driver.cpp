#include <string>

#include "helpers/diagnostic_tests.h"
#include "helpers/text_helpers.h"
#include "platform/winapi.h"
#include "registry/stored_settings.h"
#include "scan/results.h"
#include "scan/results_page.h"
#include "scan/scan.h"
#include "window/last_run.h"
#include "window/panels.h"
#include "window/run.h"

namespace tidemark {
namespace {

// Columns of lvScan behind the test's name.
constexpr int kStatus = 1;
constexpr int kProblems = 2;

constexpr int kRunningIcon = 1;
constexpr int kDoneIcon = 2;

void ShowProgressForm(frmMain& window) {
  window.cmdBack.SetVisible(false);
  window.cmdScan.SetVisible(false);
  window.cmdStop.SetVisible(true);
  window.imgClose.SetEnabled(false);
  window.lblscanmsg(2).SetVisible(false);
  window.lblscanmsg(3).SetVisible(true);
  window.AnmSearch.SetPlaying(true);
}

void ListCheckedTests(frmMain& window) {
  const int tests = window.lvLocations.Count();
  for (int index = 1; index <= tests; ++index) {
    const ListItem* test = window.lvLocations.Item(index);
    if (test == nullptr || !test->Checked()) continue;
    window.front_end.DoEvents();
    if (IsOvertaken(window)) return;
    test = window.lvLocations.Item(index);  // a visit of Home fills the list anew
    if (test == nullptr || !WhyUnknown(test->Key().View()).empty()) continue;
    if (ListItem* row = window.lvScan.Add(test->Key(), test->Caption())) {
      row->SetSubItem(kStatus, "Pending");
    }
    window.front_end.DoEvents();
  }
}

void ShowRunning(frmMain& window, ListItem& row) {
  row.SetSubItem(kStatus, "Analyzing");
  row.SetSubItem(kProblems, "0");
  window.lvScan.EnsureVisible(&row);
  window.lvScan.Select(&row);
  row.SetSmallIcon(kRunningIcon);
}

void ShowDone(const frmMain& window, ListItem& row) {
  row.SetSubItem(kStatus, window.StopRequested ? "Aborted" : "Finished");
  row.SetSubItem(kProblems, WholeNumberText(LeadingNumber(row.SubItem(kProblems).View())));
  row.SetSmallIcon(kDoneIcon);
}

// One row of lvScan from "Analyzing" to "Finished" or "Aborted".
void RunTest(frmMain& window, int index) {
  ListItem& row = *window.lvScan.Item(index);
  const std::string code = row.Key().String();
  window.CurrentLocation = code;
  ShowRunning(window, row);
  ScanKey(window, code);
  if (!IsOvertaken(window)) ShowDone(window, row);
}

void RunTests(frmMain& window) {
  window.lvScan.BringToFront();
  window.front_end.DoEvents();
  if (IsOvertaken(window)) return;
  window.ProblemCount = 0;
  // The message that a scan takes some minutes goes to a member 0 of lblscanmsg, which does not
  // exist; so it never shows, on purpose.
  const int tests = window.lvScan.Count();
  for (int index = 1; index <= tests; ++index) {
    window.front_end.DoEvents();
    if (IsOvertaken(window)) return;
    RunTest(window, index);
    if (MustEnd(window)) return;
    window.front_end.DoEvents();
  }
}

void SummarizeRow(frmMain& window, const ListItem& row) {
  const double problems = LeadingNumber(row.SubItem(kProblems).View());
  if (problems <= 0) return;
  ListItem* found = window.lvFound.Add(row.Key(), row.Caption());
  if (found != nullptr) found->SetSubItem(1, row.SubItem(kProblems));
  const DiagnosticTest* test = FindDiagnosticTest(row.Key().View());
  if (test == nullptr) return;
  const auto severity = static_cast<std::size_t>(test->severity);
  window.SeverityCounts[severity] += RoundToLong(problems).value_or(0);
  if (found == nullptr) return;
  found->SetSmallIcon(test->severity + 1);
  found->SetSubItem(2, kSeverityWords[severity]);
}

void ShowFindings(frmMain& window) {
  window.lblFound.SetCaption("Problems Found : " + std::to_string(window.ProblemCount));
  window.SeverityCounts = {};
  for (int index = 1; index <= window.lvScan.Count(); ++index) {
    window.front_end.DoEvents();
    if (IsOvertaken(window)) return;
    SummarizeRow(window, *window.lvScan.Item(index));
  }
  if (window.lvFound.Count() > 0) {
    window.lvFound.Select(window.lvFound.Item(1));
    lvFound_Click(window);
  }
}

void ScanCheckedTests(frmMain& window) {
  ListCheckedTests(window);
  if (IsOvertaken(window)) return;
  if (window.lvScan.Count() == 0) {
    // The finish runs all the same, with the count of the scan before. On purpose.
    window.front_end.ShowMessage("No diagnostic test,  please select test to scan",
                                 window.application.title, MessageIcon::kInformation);
    return;
  }
  RunTests(window);
  if (!IsOvertaken(window)) ShowFindings(window);
}

void ShowResultsPage(frmMain& window) {
  HideAllFrames(window);
  window.picClear.SetVisible(true);
  ShowResultTexts(window);
  window.cmdStopFix.SetEnabled(true);
  window.cmdCancel.SetEnabled(true);
  window.cmdCancel.SetVisible(true);
  window.cmdScan.SetVisible(true);
  window.cmdStop.SetVisible(false);
}

void StoreStatistics(frmMain& window) {
  // A total that does not fit 32 bits is not taken over.
  window.TotalToDate =
      RoundToLong(LeadingNumber(Setting("TotalCount", "0"))).value_or(window.TotalToDate);
  window.TotalToDate = RoundToLong(static_cast<double>(window.TotalToDate) + window.ProblemCount)
                           .value_or(window.TotalToDate);
  SYSTEMTIME now{};
  GetLocalTime(&now);
  SaveLastRunTime(window, now);
  SaveLastRunDate(window, now);
  SaveSetting("TotalCount", std::to_string(window.TotalToDate));
  SaveSetting("LastCount", std::to_string(window.ProblemCount));
  SaveSetting("OutstandingErrors", std::to_string(window.ProblemCount));
  window.lblTotaltodate.SetCaption(std::to_string(window.TotalToDate));
  window.lblLastscan.SetCaption(std::to_string(window.ProblemCount));
  window.LastRunTime = Setting("LastRunTime", "");
  window.LastRunDate = Setting("LastRunDate", "");
}

}  // namespace

void cmdScan_Click(frmMain& window) {
  ++window.ScansBegun;
  const Run run(window);
  window.ScanRunning = true;
  CtlStatus(window, false);
  ShowProgressForm(window);
  window.StopRequested = false;
  window.lblRepaired.SetCaption("");
  for (ListView* list :
       {&window.lvInvalidLoc, &window.lvFound, &window.lvProblems, &window.lvScan}) {
    list->Clear();
  }
  ScanCheckedTests(window);
  // The younger scan has shown and stored its own results.
  if (IsOvertaken(window)) return;
  ShowResultsPage(window);
  StoreStatistics(window);
  window.AnmSearch.SetPlaying(false);
  window.imgClose.SetEnabled(true);
  window.ScanRunning = false;
}

}  // namespace tidemark
