#include "shell/pages.h"

#include <string>

#include "helpers/system_helpers.h"
#include "platform/winapi.h"
#include "scan/scan.h"
#include "shell/home_page.h"
#include "shell/open_dialogs.h"
#include "shell/options.h"
#include "shell/status.h"
#include "window/panels.h"

namespace tidemark {
namespace {

constexpr unsigned kWhite = 0xFFFFFF;
// The platform's system colours, by number.
constexpr unsigned kHighlight = 0x8000000D;
constexpr unsigned kHighlightText = 0x8000000E;

void ShowTabFrame(frmMain& window) {
  Bounds place = window.picOptions.Place();
  place.left = 600;
  place.top = 1440;
  window.picOptions.SetPlace(place);
  window.picOptions.BringToFront();
  window.picOptions.SetVisible(true);
}

void OpenSitePage(const frmMain& window, std::string_view path) {
  OpenWebPage(window.front_end.WindowHandle(window.form), window.application.web_address, path,
              "Open", nullptr, window.application.folder.c_str(), SW_SHOWNORMAL);
}

}  // namespace

void cmdMenuHome_Click(frmMain& window) {
  SetStat(window);
  SetInitValues(window);
  HighLightButtons(window);
  HideAllFrames(window);
  window.picWelcome.SetVisible(true);
  LoadProgramPicture(window, window.cmdMenuHome, "\\images\\overview2.jpg");
  ShowWaysFromHome(window);
}

void cmdMenuScan_Click(frmMain& window) {
  window.picAbout.SetVisible(false);
  window.picOptions.SetVisible(false);
  HighLightButtons(window);
  LoadProgramPicture(window, window.cmdMenuScan, "\\images\\RegistryScan2.jpg");
  // A text for member 0 of lblscanmsg, which does not exist, never shows; member 1 keeps its own.
  window.picClear.SetVisible(false);
  window.lblscanmsg(2).SetVisible(!window.ScanRunning);
  window.lblscanmsg(3).SetVisible(window.ScanRunning);
  HideAllFrames(window);
  window.picScan.SetVisible(true);
  window.lvLocations.BringToFront();
  if (window.ScanRunning) return;
  window.lblstatus.SetCaption("");
  window.pbarScan.SetValue(0);
  window.cmdBack.SetVisible(true);
  window.cmdScan.SetVisible(true);
  window.cmdStop.SetVisible(false);
}

void cmdMenuAdvanced_Click(frmMain& window) {
  HideAllFrames(window);
  HighLightButtons(window);
  LoadProgramPicture(window, window.cmdMenuAdvanced, "\\images\\settings2.jpg");
  ShowTabFrame(window);
  lblOptions_Click(window, 0);
}

void cmdMenuBackups_Click(frmMain& window) {
  HideAllFrames(window);
  HighLightButtons(window);
  ShowTabFrame(window);
  lblOptions_Click(window, 1);
  LoadProgramPicture(window, window.cmdMenuBackups, "\\images\\backup2.jpg");
}

void lblOptions_Click(frmMain& window, int index) {
  if (index == 3) {
    OpenWebPage(window.front_end.WindowHandle(window.form), window.application.web_address,
                "/tellafriend.php", "open", "1", "1", SW_SHOWMAXIMIZED);
    return;
  }
  Label* label = window.lblOptions.Find(index);
  PictureBox* tab = window.picAdvOptions.Find(index);
  if (label == nullptr || tab == nullptr) return;
  label->SetBackColor(kWhite);
  label->SetForeColor(kHighlight);
  window.CurrentTab = index;
  tab->SetBorderStyle(0);
  tab->SetVisible(true);
  tab->BringToFront();
  LoadProgramPicture(window, window.picopttoolback,
                     "\\images\\AdvancedOptions" + std::to_string(index) + ".jpg");
  if (index == 0) ShowNextRun(window);
  if (index == 2) window.loadPrograms();
  for (int other = 0; other < window.lblOptions.Count(); ++other) {
    if (other == index) continue;
    window.lblOptions(other).SetBackColor(kHighlight);
    window.lblOptions(other).SetForeColor(kHighlightText);
    if (PictureBox* panel = window.picAdvOptions.Find(other)) panel->SetVisible(false);
  }
}

void imgtoolbar_Click(frmMain& window, int index) {
  switch (index) {
    case 0:
      window.picScan.SetVisible(false);
      window.picAbout.SetVisible(false);
      window.picClear.SetVisible(false);
      ShowTabFrame(window);
      lblOptions_Click(window, 0);
      break;
    case 2:
      OpenSitePage(window, "/tellafriend.php");
      break;
    case 3:
      ShowAbout(window);
      break;
    case 4:
      OpenSitePage(window, "/support.php");
      break;
    default:
      break;
  }
}

void cmdScanNow_Click(frmMain& window) {
  cmdMenuScan_Click(window);
  cmdScan_Click(window);
}

void cmdBack_Click(frmMain& window) {
  SetStat(window);
  cmdMenuHome_Click(window);
}

void cmdFinish_Click(frmMain& window) {
  window.cmdFinish.SetVisible(false);
  cmdBack_Click(window);
}

void cmdStop_Click(frmMain& window) {
  window.ScanRunning = false;
  window.StopRequested = true;
  window.front_end.DoEvents();
}

void cmdStopFix_Click(frmMain& window) { cmdStop_Click(window); }

void cmdTellaFriend_Click(frmMain& window) { imgtoolbar_Click(window, 2); }

}  // namespace tidemark
