#include "shell/wiring.h"

#include "repair/repair.h"
#include "scan/findings.h"
#include "scan/locations.h"
#include "scan/scan.h"
#include "shell/main_window.h"
#include "shell/pages.h"
#include "shell/status.h"

namespace tidemark {
namespace {

void BindForm(frmMain& window) {
  window.form.Load.Bind([&window] { Form_Load(window); });
  window.form.Unload.Bind([&window] { Form_Unload(window); });
  window.SetInitValues.Bind([&window] { SetInitValues(window); });
}

void BindPages(frmMain& window) {
  window.cmdMenuHome.Clicked.Bind([&window] { cmdMenuHome_Click(window); });
  window.cmdMenuScan.Clicked.Bind([&window] { cmdMenuScan_Click(window); });
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
}

void BindScan(frmMain& window) {
  window.lvLocations.ItemChecked.Bind([&window](ListItem&) { SaveLocations(window); });
  window.chkSelectAll.Clicked.Bind([&window] { chkSelectAll_Click(window); });
  window.cmdBack.Clicked.Bind([&window] { cmdBack_Click(window); });
  window.cmdScan.Clicked.Bind([&window] { cmdScan_Click(window); });
  window.cmdStop.Clicked.Bind([&window] { cmdStop_Click(window); });
}

void BindResults(frmMain& window) {
  window.lvFound.Clicked.Bind([&window] { lvFound_Click(window); });
  window.lvProblems.ItemChecked.Bind(
      [&window](ListItem& item) { lvProblems_ItemCheck(window, item); });
  window.lvProblems.MouseUp.Bind([&window] { lvProblems_MouseUp(window); });
  window.lvInvalidLoc.ColumnClicked.Bind(
      [&window](int column) { lvInvalidLoc_ColumnClick(window, column); });
  window.lvInvalidLoc.DoubleClicked.Bind([&window] { lvInvalidLoc_DblClick(window); });
  window.cmdFix.Clicked.Bind([&window] { cmdFix_Click(window); });
  window.cmdCancel.Clicked.Bind([&window] { cmdCancel_Click(window); });
  window.cmdStopFix.Clicked.Bind([&window] { cmdStopFix_Click(window); });
  window.cmdFinish.Clicked.Bind([&window] { cmdFinish_Click(window); });
}

}  // namespace

void BindHandlers(frmMain& window) {
  BindForm(window);
  BindPages(window);
  BindScan(window);
  BindResults(window);
}

}  // namespace tidemark
