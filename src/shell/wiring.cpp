#include "shell/wiring.h"

#include "junk/junk.h"
#include "platform/write_protection.h"
#include "repair/backups.h"
#include "repair/repair.h"
#include "scan/locations.h"
#include "scan/results.h"
#include "scan/results_page.h"
#include "scan/saved_list.h"
#include "scan/scan.h"
#include "shell/home_page.h"
#include "shell/main_window.h"
#include "shell/open_dialogs.h"
#include "shell/options.h"
#include "shell/pages.h"
#include "shell/running_work.h"
#include "shell/scheduler.h"
#include "shell/status.h"
#include "shell/tray.h"
#include "shortcuts/shortcuts.h"
#include "startup/startup.h"
#include "startup/startup_page.h"
#include "startup/startup_records.h"

namespace tidemark {
namespace {

// Whether an act that changes the PC may go on; where nothing can be changed, that is said instead.
bool CanChange(frmMain& window) {
  const std::string why = WhyNothingCanBeChanged();
  if (why.empty()) return true;
  window.front_end.ShowMessage(why, window.application.title, MessageIcon::kExclamation);
  return false;
}

void BindForm(frmMain& window) {
  window.form.Load.Bind([&window] { Form_Load(window); });
  window.form.Unload.Bind([&window] { Form_Unload(window); });
  window.form.Progress = [&window] { return WorkProgress(window); };
  window.SetInitValues.Bind([&window] { SetInitValues(window); });
}

void BindPages(frmMain& window) {
  window.cmdMenuHome.Clicked.Bind([&window] { cmdMenuHome_Click(window); });
  window.TmrScanState.Tick.Bind([&window] { ShowScanState(window); });
  window.lblScanState.Clicked.Bind([&window] { window.cmdMenuScan.Click(); });
  window.lblLastscan.Clicked.Bind([&window] { lblLastscan_Click(window); });
  window.cmdMenuScan.Clicked.Bind([&window] {
    cmdMenuScan_Click(window);
    ShowRunningWork(window);
  });
  window.cmdMenuBackups.Clicked.Bind([&window] { cmdMenuBackups_Click(window); });
  window.cmdMenuAdvanced.Clicked.Bind([&window] { cmdMenuAdvanced_Click(window); });
  for (int index = 0; index < window.lblOptions.Count(); ++index) {
    window.lblOptions(index).Clicked.Bind([&window, index] { lblOptions_Click(window, index); });
  }
  for (int index = 0; index < window.imgtoolbar.Count(); ++index) {
    window.imgtoolbar(index).Clicked.Bind([&window, index] { imgtoolbar_Click(window, index); });
  }
  window.cmdScanNow.Clicked.Bind([&window] { cmdScanNow_Click(window); });
  window.cmdTellaFriend.Clicked.Bind([&window] { cmdTellaFriend_Click(window); });
  window.cmdHelp.Clicked.Bind([&window] { ShowHelp(window); });
  window.cmdAbout.Clicked.Bind([&window] { ShowAbout(window); });
  window.form.Help.Bind([&window] { ShowHelp(window); });
}

void BindScan(frmMain& window) {
  window.lvLocations.ItemChecked.Bind([&window](ListItem&) { SaveLocations(window); });
  window.chkSelectAll.Clicked.Bind([&window] { chkSelectAll_Click(window); });
  window.cmdBack.Clicked.Bind([&window] { cmdBack_Click(window); });
  window.cmdScan.Clicked.Bind([&window] { cmdScan_Click(window); });
  window.cmdStop.Clicked.Bind([&window] { cmdStop_Click(window); });
  window.ShortCuts.Bind([&window] { ShortCuts(window); });
}

void BindOptions(frmMain& window) {
  window.LoadOptions.Bind([&window] { LoadOptions(window); });
  window.Scheduler.Bind([&window] { Scheduler(window); });
  window.chkStartup.Clicked.Bind([&window] { chkStartup_Click(window); });
  window.chkSystray.Clicked.Bind([&window] { chkSystray_Click(window); });
  window.chkScheduler.Clicked.Bind([&window] { chkScheduler_Click(window); });
  for (int index = 0; index < window.optSchedule.Count(); ++index) {
    window.optSchedule(index).Clicked.Bind([&window] { optSchedule_Click(window); });
  }
  window.cmdOptApply.Clicked.Bind([&window] { cmdOptApply_Click(window); });
  window.cmdOptCancel.Clicked.Bind([&window] { cmdOptCancel_Click(window); });
  window.TmrScheduler.Tick.Bind([&window] { TmrScheduler_Timer(window); });
}

void BindTray(frmMain& window) {
  window.AddTrayIcon.Bind([&window] { AddTrayIcon(window); });
  window.RemoveTrayIcon.Bind([&window] { RemoveTrayIcon(window); });
  window.form.MouseMove.Bind([&window](int button, int shift, double x, double y) {
    Form_MouseMove(window, button, shift, x, y);
  });
  window.mnuOpen.Clicked.Bind([&window] { mnuOpen_Click(window); });
  window.mnuTellafriend.Clicked.Bind([&window] { mnuTellafriend_Click(window); });
  window.mnuHelp.Clicked.Bind([&window] { mnuHelp_Click(window); });
  window.mnuAbout.Clicked.Bind([&window] { mnuAbout_Click(window); });
}

void BindBackups(frmMain& window) {
  window.Loadbackup.Bind([&window] { Loadbackup(window); });
  window.MakeMessBox.Bind([&window] { MessBox(window); });
  window.cmdBakupReg.Clicked.Bind([&window] { cmdBakupReg_Click(window); });
  window.cmdRestore.Clicked.Bind([&window] {
    if (CanChange(window)) cmdRestore_Click(window);
  });
  window.LvBackup.MouseUp.Bind([&window] { LvBackup_MouseUp(window); });
  window.cmdRemove.Clicked.Bind([&window] { cmdRemove_Click(window); });
}

void BindStartup(frmMain& window) {
  window.loadPrograms.Bind([&window] { loadPrograms(window); });
  window.lvPrograms.ItemChecked.Bind([&window](ListItem& item) {
    if (CanChange(window)) {
      EnabledDisableProgram(window, item);
    } else {
      window.loadPrograms();  // shows what holds
    }
  });
  window.lvPrograms.MouseUp.Bind([&window] { lvPrograms_MouseUp(window); });
  window.lvPrograms.Clicked.Bind([&window] { ShowSelectedProgram(window); });
  window.cmdWriteBack.Clicked.Bind([&window] { window.mnuAddNew.Clicked(); });
  window.cmdDeleteEntry.Clicked.Bind([&window] { window.mnuDeleteProgram.Clicked(); });
  window.lvPrograms.ContextMenu.Bind([&window] { lvPrograms_ContextMenu(window); });
  window.mnuAddNew.Clicked.Bind([&window] {
    if (CanChange(window)) mnuAddNew_Click(window);
  });
  window.mnuPutBack.Clicked.Bind([&window] {
    if (CanChange(window)) mnuPutBack_Click(window);
  });
  window.mnuDeleteProgram.Clicked.Bind([&window] {
    if (CanChange(window)) mnuDeleteProgram_Click(window);
  });
}

void BindResults(frmMain& window) {
  window.lvFound.Clicked.Bind([&window] {
    lvFound_Click(window);
    ShowSelectedProblem(window);
  });
  window.lvFound.ContextMenu.Bind([&window] { ShowResultsMenu(window); });
  window.lvProblems.Clicked.Bind([&window] { ShowSelectedProblem(window); });
  window.lvProblems.ItemChecked.Bind([&window](ListItem& item) {
    lvProblems_ItemCheck(window, item);
    CountTick(window, item.Checked());
  });
  window.lvProblems.MouseUp.Bind([&window] { lvProblems_MouseUp(window); });
  window.lvProblems.ContextMenu.Bind([&window] { ShowResultsMenu(window); });
  window.mnuOpenKey.Clicked.Bind([&window] { mnuOpenKey_Click(window); });
  window.mnuTickAll.Clicked.Bind([&window] { mnuTickAll_Click(window); });
  window.mnuClearAll.Clicked.Bind([&window] { mnuClearAll_Click(window); });
  window.mnuInvert.Clicked.Bind([&window] { mnuInvert_Click(window); });
  window.mnuCopyRows.Clicked.Bind([&window] { mnuCopyRows_Click(window); });
  window.mnuSaveList.Clicked.Bind([&window] { mnuSaveList_Click(window); });
  window.lvInvalidLoc.ColumnClicked.Bind(
      [&window](int column) { lvInvalidLoc_ColumnClick(window, column); });
  window.lvInvalidLoc.DoubleClicked.Bind([&window] { lvInvalidLoc_DblClick(window); });
  window.cmdFix.Clicked.Bind([&window] {
    if (CanChange(window)) cmdFix_Click(window);
  });
  window.cmdCancel.Clicked.Bind([&window] { cmdCancel_Click(window); });
  window.cmdStopFix.Clicked.Bind([&window] { cmdStopFix_Click(window); });
  window.cmdFinish.Clicked.Bind([&window] { cmdFinish_Click(window); });
}

void BindJunk(frmMain& window) {
  window.LoadFileTypes.Bind([&window] { LoadFileTypes(window); });
  window.LoadExcludeFolders.Bind([&window] { LoadExcludeFolders(window); });
  window.cmdCleanJunk.Clicked.Bind([&window] { cmdCleanJunk_Click(window); });
  window.tvDrives.NodeChecked.Bind([&window](TreeNode&) { SaveDrives(window, window.tvDrives); });
  window.lvFileTypes.ItemChecked.Bind([&window](ListItem&) { SaveFileTypes(window); });
  window.lvExcludeFolders.ItemChecked.Bind([&window](ListItem&) { SaveExcludeFolders(window); });
  for (int index = 0; index < window.cmdFileTypes.Count(); ++index) {
    window.cmdFileTypes(index).Clicked.Bind([&window, index] { EditFileTypes(window, index); });
  }
  for (int index = 0; index < window.cmdExcludeFolders.Count(); ++index) {
    window.cmdExcludeFolders(index).Clicked.Bind(
        [&window, index] { EditExcludeFolders(window, index); });
  }
  window.cmdJunkScan.Clicked.Bind([&window] { cmdJunkScan_Click(window); });
  window.cmdJunkStop.Clicked.Bind([&window] { cmdJunkStop_Click(window); });
  window.lvJunkFiles.ItemChecked.Bind(
      [&window](const ListItem& row) { lvJunkFiles_ItemCheck(window, row); });
  window.lvJunkFiles.ColumnClicked.Bind(
      [&window](int column) { lvJunkFiles_ColumnClick(window, column); });
  window.lvJunkFiles.DoubleClicked.Bind([&window] { lvJunkFiles_DblClick(window); });
  for (int index = 0; index < window.cmdJunkFile.Count(); ++index) {
    window.cmdJunkFile(index).Clicked.Bind([&window, index] {
      cmdJunkFile_Click(window, index);
      ShowTickedFiles(window);
    });
  }
}

}  // namespace

void BindHandlers(frmMain& window) {
  BindForm(window);
  BindPages(window);
  BindScan(window);
  BindResults(window);
  BindOptions(window);
  BindTray(window);
  BindBackups(window);
  BindJunk(window);
  BindStartup(window);
}

}  // namespace tidemark
