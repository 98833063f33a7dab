#include "window/places.h"

#include <initializer_list>

namespace tidemark {
namespace {

struct Placed {
  Control& control;
  Bounds place;
};

void Place(std::initializer_list<Placed> controls) {
  for (const Placed& placed : controls) placed.control.SetPlace(placed.place);
}

void PlaceOnForm(frmMain& window) {
  Place({{window.form, {0, 0, 11670, 7425}},
         {window.cmdMenuHome, {600, 225, 2490, 1005}},
         {window.cmdMenuScan, {3275, 225, 2490, 1005}},
         {window.cmdMenuBackups, {5950, 225, 2490, 1005}},
         {window.cmdMenuAdvanced, {8625, 225, 2490, 1005}},
         {window.lblTitle, {0, 9000, 3000, 300}},
         {window.imgClose, {3200, 9000, 300, 300}},
         {window.imgMin, {3600, 9000, 300, 300}},
         {window.lvInvalidLoc, {840, 9720, 7440, 1395}}});
  for (int index = 0; index < window.imgtoolbar.Count(); ++index) {
    window.imgtoolbar(index).SetPlace({4200 + index * 600, 9000, 500, 500});
  }
  for (Control* panel : std::initializer_list<Control*>{
           &window.picWelcome, &window.picScan, &window.picClear, &window.picOptions,
           &window.picJunkCriteria, &window.picJunkScan, &window.picAbout}) {
    panel->SetPlace({600, 1440, 10515, 5415});
  }
}

void PlaceHome(frmMain& window) {
  Place({{window.IMGRegistryStatus, {450, 600, 3600, 3600}},
         {window.lblLastscanCaption, {4650, 600, 3600, 285}},
         {window.lblLastscan, {8250, 480, 1800, 480}},
         {window.lblTotaltodateCaption, {4650, 1170, 3600, 285}},
         {window.lblTotaltodate, {8250, 1050, 1800, 480}},
         {window.lblLastDateCaption, {4650, 1740, 5600, 285}},
         {window.lblLastDate, {4650, 2025, 5600, 255}},
         {window.lblScanState, {4650, 2340, 5600, 255}},
         {window.lblRepaired, {4650, 2640, 5600, 735}},
         {window.cmdScanNow, {4650, 3450, 2400, 525}},
         {window.cmdCleanJunk, {7350, 3450, 2400, 525}},
         {window.cmdHelp, {4650, 4575, 1125, 420}},
         {window.cmdAbout, {5925, 4575, 1125, 420}},
         {window.cmdTellaFriend, {7350, 4575, 2400, 420}}});
}

void PlaceScan(frmMain& window) {
  // All twelve tests are in view.
  constexpr Bounds kScanList = {225, 645, 10065, 3480};
  Place({{window.lblscanmsg(1), {225, 105, 9450, 240}},
         {window.lblscanmsg(2), {225, 360, 9450, 255}},
         {window.lblscanmsg(3), {225, 360, 9450, 255}},
         {window.lvLocations, kScanList},
         {window.lvScan, kScanList},
         {window.chkSelectAll, {225, 4215, 3000, 255}},
         {window.AnmSearch, {9810, 120, 480, 480}},
         {window.pbarScan, {225, 4500, 10065, 195}},
         {window.lblstatus, {225, 4710, 10065, 210}},
         {window.cmdBack, {225, 4935, 1575, 390}},
         {window.cmdScan, {8715, 4935, 1575, 390}},
         {window.cmdStop, {8715, 4935, 1575, 390}}});
}

void PlaceResults(frmMain& window) {
  // The lists hold whole rows: four, and nine.
  Place({{window.lblFound, {225, 45, 2250, 270}},
         {window.lblsinfo, {2700, 75, 7590, 225}},
         {window.lvFound, {225, 330, 10065, 1440}},
         {window.lblinfo3, {225, 1785, 10065, 210}},
         {window.lvProblems, {225, 1995, 10065, 2715}},
         {window.lblNothingFound, {225, 1200, 10065, 600}},
         {window.txtProblem, {225, 4725, 10065, 225}},
         {window.cmdFix, {225, 4980, 1575, 375}},
         {window.cmdStopFix, {225, 4980, 1575, 375}},
         {window.cmdFinish, {225, 4980, 1575, 375}},
         {window.cmdCancel, {1995, 4980, 1575, 375}},
         {window.lblRepairNote, {3765, 4965, 6525, 405}},
         {window.ProgressBar2, {3765, 5070, 5850, 195}},
         {window.Animation1, {9810, 4950, 420, 420}}});
}

void PlaceTabs(frmMain& window) {
  window.picopttoolback.SetPlace({0, 0, 10515, 480});
  // Above the line that closes the tabs.
  window.imgTellaFriend.SetPlace({7875, 0, 2640, 465});
  for (int tab = 0; tab < window.lblOptions.Count(); ++tab) {
    window.lblOptions(tab).SetPlace({tab * 2625, 0, 2625, 480});
  }
  for (int tab = 0; tab < window.picAdvOptions.Count(); ++tab) {
    window.picAdvOptions(tab).SetPlace({0, 480, 10515, 4935});
  }
  Place({{window.lblStartupTitle, {450, 300, 6000, 300}},
         {window.chkStartup, {450, 750, 6000, 285}},
         {window.chkSystray, {450, 1125, 6000, 285}},
         {window.lblStartupNotice, {450, 1455, 9600, 270}},
         {window.lblSchedulerTitle, {450, 1800, 6000, 300}},
         {window.chkScheduler, {450, 2250, 2700, 285}},
         {window.lblSchedulerNote, {3300, 2280, 6990, 255}},
         {window.lblNextRun, {3600, 2655, 6690, 255}},
         {window.optSchedule(0), {750, 2625, 2700, 285}},
         {window.optSchedule(1), {750, 2985, 2700, 285}},
         {window.optSchedule(2), {750, 3345, 2700, 285}},
         {window.optSchedule(3), {750, 3705, 2700, 285}},
         {window.cmdOptApply, {6945, 4425, 1575, 390}},
         {window.cmdOptCancel, {8715, 4425, 1575, 390}}});
  Place({{window.lblscanmsg(5), {225, 150, 10065, 270}},
         {window.lblscanmsg(6), {225, 435, 10065, 270}},
         {window.LvBackup, {225, 780, 10065, 2970}},
         {window.lblBackupNote, {225, 3795, 10065, 255}},
         {window.lblRestored, {225, 4080, 10065, 270}},
         {window.cmdBakupReg, {225, 4425, 2175, 390}},
         {window.cmdRestore, {6945, 4425, 1575, 390}},
         {window.cmdRemove, {8715, 4425, 1575, 390}}});
  Place({{window.Label3, {225, 150, 7650, 270}},
         {window.lblSource, {7935, 150, 2355, 270}},
         {window.lvPrograms, {225, 450, 10065, 3885}},
         {window.lblProgramNote, {225, 4485, 6135, 270}},
         {window.cmdWriteBack, {6480, 4425, 1995, 390}},
         {window.cmdDeleteEntry, {8595, 4425, 1695, 390}}});
}

// The result panel lies over the page, below its title.
void PlaceJunk(frmMain& window) {
  Place({{window.lblJunkTitle, {225, 120, 10065, 300}},
         {window.lblDrives, {225, 555, 2700, 270}},
         {window.tvDrives, {225, 840, 2700, 3885}},
         {window.lblFileTypes, {3150, 555, 7140, 270}},
         {window.lvFileTypes, {3150, 840, 5775, 1695}},
         {window.lblExcludeFolders, {3150, 2745, 7140, 270}},
         {window.lvExcludeFolders, {3150, 3030, 5775, 1695}},
         {window.cmdJunkScan, {8715, 4905, 1575, 390}}});
  for (int index = 0; index < window.cmdFileTypes.Count(); ++index) {
    window.cmdFileTypes(index).SetPlace({9075, 840 + index * 465, 1215, 390});
  }
  for (int index = 0; index < window.cmdExcludeFolders.Count(); ++index) {
    window.cmdExcludeFolders(index).SetPlace({9075, 3030 + index * 465, 1215, 390});
  }
  Place({{window.lblJunkStatus, {225, 75, 6450, 270}},
         {window.lblJunkTicked, {6900, 75, 3375, 270}},
         {window.lvJunkFiles, {225, 390, 10050, 3480}},
         {window.PbarRemoveJunk, {225, 3960, 10050, 180}},
         {window.picScaningJunk, {2700, 1350, 5100, 1800}},
         {window.lblScaningJunk, {1050, 375, 3750, 300}},
         {window.Animation2, {300, 285, 480, 480}},
         {window.cmdJunkStop, {1650, 1125, 1800, 420}}});
  for (int index = 0; index < window.cmdJunkFile.Count(); ++index) {
    window.cmdJunkFile(index).SetPlace({225 + index * 720, 4230, 630, 600});
  }
}

}  // namespace

void PlaceControls(frmMain& window) {
  PlaceOnForm(window);
  PlaceHome(window);
  PlaceScan(window);
  PlaceResults(window);
  PlaceTabs(window);
  PlaceJunk(window);
}

}  // namespace tidemark
