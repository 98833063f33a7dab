#include "scan/results_page.h"

#include <initializer_list>
#include <string>

#include "window/finding_columns.h"

namespace tidemark {
namespace {

std::string WhatWasFound(const frmMain& window) {
  if (window.lvScan.Count() == 0) return "Nothing was scanned: no diagnostic test is selected.";
  return window.StopRequested ? "No problems found until the scan was stopped."
                              : "No problems found.";
}

std::string WhatRepairDoes(int entries) {
  if (entries == 0) return "No problem is ticked: there is nothing to repair.";
  return "'Repair' writes an undo file to the Backups page, then deletes " +
         std::to_string(entries) + (entries == 1 ? " entry." : " entries.");
}

void ShowRepairNote(frmMain& window) {
  window.lblRepairNote.SetCaption(WhatRepairDoes(window.FindingsTicked));
}

void CountTicks(frmMain& window) {
  window.FindingsTicked = 0;
  for (int index = 1; index <= window.lvInvalidLoc.Count(); ++index) {
    if (window.lvInvalidLoc.Item(index)->SubItem(kSelected) == "1") ++window.FindingsTicked;
  }
  ShowRepairNote(window);
}

enum class Ticks { kAll, kNone, kInvert };

void TickProblems(frmMain& window, Ticks ticks) {
  ListView& problems = window.lvProblems;
  for (int row = 1; row <= problems.Count(); ++row) {
    ListItem& problem = *problems.Item(row);
    const bool inverted = !problem.Checked();
    problems.UserCheck(problem, ticks == Ticks::kInvert ? inverted : ticks == Ticks::kAll);
  }
}

}  // namespace

void ShowResultTexts(frmMain& window) {
  const bool found = window.lvFound.Count() > 0;
  for (Control* control : std::initializer_list<Control*>{
           &window.lblinfo3, &window.lblsinfo, &window.lvFound, &window.lvProblems,
           &window.txtProblem, &window.lblRepairNote}) {
    control->SetVisible(found);
  }
  window.lblNothingFound.SetVisible(!found);
  window.lblNothingFound.SetCaption(WhatWasFound(window));
  // The count of the scan before was not found by this one.
  if (window.lvScan.Count() == 0) window.lblFound.SetCaption("");
  // A repair may have left it.
  window.cmdFinish.SetVisible(false);
  CountTicks(window);
  ShowSelectedProblem(window);
}

void ShowSelectedProblem(frmMain& window) {
  const ListItem* problem = window.lvProblems.SelectedItem();
  if (problem == nullptr) {
    window.txtProblem.SetText("Select a problem to read all of it here.");
    return;
  }
  std::string text = problem->Caption().String();
  const Text& name = problem->SubItem(kValueName);
  const Text& data = problem->SubItem(kValueData);
  if (!name.empty()) text += "   Value: " + name.String();
  if (!data.empty()) text += "   Data: " + data.String();
  window.txtProblem.SetText(text + "   Reason: " + problem->SubItem(kReason).String());
}

void CountTick(frmMain& window, bool ticked) {
  window.FindingsTicked += ticked ? 1 : -1;
  ShowRepairNote(window);
}

void ShowResultsMenu(frmMain& window) {
  if (window.lvProblems.Count() == 0) return;
  const bool selected = window.lvProblems.SelectedItem() != nullptr;
  window.mnuOpenKey.SetEnabled(selected);
  window.mnuCopyRows.SetEnabled(selected);
  window.front_end.PopupMenu(window.mnuProblems);
}

void mnuTickAll_Click(frmMain& window) { TickProblems(window, Ticks::kAll); }
void mnuClearAll_Click(frmMain& window) { TickProblems(window, Ticks::kNone); }
void mnuInvert_Click(frmMain& window) { TickProblems(window, Ticks::kInvert); }

void mnuCopyRows_Click(frmMain& window) {
  window.front_end.CopyText(window.lvProblems.SelectedText());
}

}  // namespace tidemark
