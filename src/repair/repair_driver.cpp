#include <array>
#include <cstdio>
#include <string>

#include "helpers/diagnostic_tests.h"
#include "helpers/text_helpers.h"
#include "platform/winapi.h"
#include "registry/stored_settings.h"
#include "repair/category_repairs.h"
#include "repair/complete_restore.h"
#include "repair/repair.h"
#include "window/finding_columns.h"
#include "window/panels.h"
#include "window/run.h"

namespace tidemark {
namespace {

// "...\backup\undo_yyddmm_hhnnss.reg". Year, day, month: unlike the manual backups, on purpose.
std::string UndoFilePath(const std::string& program_folder) {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  std::array<char, 64> name{};
  std::snprintf(name.data(), name.size(), "\\backup\\undo_%02d%02d%02d_%02d%02d%02d.reg",
                now.wYear % 100, now.wDay, now.wMonth, now.wHour, now.wMinute, now.wSecond);
  return program_folder + name.data();
}

// A flag that is no number can't be tested, and the row then counts as selected.
bool IsSelected(const ListItem& finding) {
  return NumberOf(finding.SubItem(kSelected).View()).value_or(1) == 1;
}

// What a run does with its rows.
struct Repair {
  explicit Repair(const std::string& the_undo_file)
      : undo_file(the_undo_file), record(CompleteRecordFolder(undo_file)) {}
  std::string undo_file;
  CompleteRecord record;
  int repaired = 0;
  std::array<int, 4> outcomes{};  // by RepairOutcome
};

void RepairRow(frmMain& window, const ListItem& finding, Repair& repair) {
  if (!IsSelected(finding)) return;
  const auto outcome = RepairFinding(window, finding, repair.undo_file, repair.record);
  if (!outcome) return;
  ++repair.repaired;
  ++repair.outcomes.at(static_cast<std::size_t>(*outcome));
  if (const DiagnosticTest* test = FindDiagnosticTest(finding.SubItem(kTestCode).View())) {
    --window.SeverityCounts[static_cast<std::size_t>(test->severity)];
  }
}

void RepairRows(frmMain& window, Repair& repair) {
  const int rows = window.lvInvalidLoc.Count();
  for (int index = 1; index <= rows; ++index) {
    // The list may have been cleared at a yield.
    if (const ListItem* finding = window.lvInvalidLoc.Item(index)) {
      RepairRow(window, *finding, repair);
    }
    window.ProgressBar2.SetValue(index);
    window.front_end.DoEvents();
    if (MustEnd(window)) return;
  }
}

// " (no rights to 2, 1 in use)"; empty when no deletion told a reason.
std::string WhyStayed(const Repair& repair) {
  const auto count = [&repair](RepairOutcome outcome) {
    return repair.outcomes.at(static_cast<std::size_t>(outcome));
  };
  const int no_rights = count(RepairOutcome::kNoRights);
  const int in_use = count(RepairOutcome::kInUse);
  std::string reasons;
  if (no_rights > 0) reasons = "no rights to " + std::to_string(no_rights);
  if (in_use > 0) reasons += (reasons.empty() ? "" : ", ") + std::to_string(in_use) + " in use";
  return reasons.empty() ? "" : " (" + reasons + ")";
}

void TellOnHomePage(frmMain& window, const Repair& repair) {
  const auto gone = static_cast<std::size_t>(RepairOutcome::kGone);
  const int stayed = repair.repaired - repair.outcomes.at(gone);
  const std::size_t failures = repair.record.failures();
  std::string text = "Problems repaired : ";
  text += std::to_string(repair.repaired - stayed) + ", undo file " +
          repair.undo_file.substr(repair.undo_file.rfind('\\') + 1) + ". ";
  if (stayed > 0) {
    text += std::to_string(stayed) + " could not be deleted" + WhyStayed(repair) + ". ";
  }
  if (failures == 0) {
    text += "All of it can be restored from the Backups page.";
  } else {
    text += std::to_string(failures) + " of them could not be recorded whole.";
  }
  window.lblRepaired.SetCaption(repair.repaired == 0 ? "" : text);
}

// The bar takes the place of what a repair would do.
void ShowAtWork(frmMain& window, bool at_work) {
  window.lblRepairNote.SetVisible(!at_work);
  window.ProgressBar2.SetVisible(at_work);
  window.Animation1.SetPlaying(at_work);
}

// Its record is whole when this returns. What a younger repair has told stays.
void RunRepair(frmMain& window) {
  Repair repair(UndoFilePath(window.application.folder));
  const Text told = window.lblRepaired.Caption();
  RepairRows(window, repair);
  repair.record.End();
  if (window.lblRepaired.Caption() == told) TellOnHomePage(window, repair);
}

// The findings of a scan that overtook the repair are to be looked at and repaired in their turn,
// and count as open.
void LeaveToTheScan(frmMain& window) {
  window.cmdFix.SetVisible(true);
  window.cmdStopFix.SetVisible(false);
  window.ProgressBar2.SetValue(0);
  window.Loadbackup();
}

}  // namespace

void cmdFix_Click(frmMain& window) {
  const Run run(window);
  window.cmdFix.SetVisible(false);
  window.cmdCancel.SetVisible(false);
  window.cmdStopFix.SetVisible(true);
  window.ProgressBar2.SetValue(0);
  window.ProgressBar2.SetMax(window.ProblemCount == 0 ? 1 : window.ProblemCount);

  ShowAtWork(window, true);
  RunRepair(window);
  ShowAtWork(window, false);
  if (IsOvertaken(window)) return LeaveToTheScan(window);

  window.cmdFix.SetVisible(true);
  window.cmdStopFix.SetEnabled(false);
  window.cmdStopFix.SetVisible(false);
  window.ProgressBar2.SetValue(0);
  window.lvFound.Clear();
  window.cmdFinish.SetVisible(true);
  HideAllFrames(window);
  window.cmdMenuHome.Click();
  window.lvProblems.Clear();
  window.Loadbackup();
  // "0" whatever was left unselected and wherever the run was stopped. On purpose.
  SaveSetting("OutstandingErrors", "0");
  window.SetInitValues();
}

void cmdCancel_Click(frmMain& window) {
  LoadProgramPicture(window, window.IMGRegistryStatus, "\\Images\\RegHealth-Low.jpg");
  window.lvInvalidLoc.Clear();
  window.cmdFinish.Clicked();
}

}  // namespace tidemark
