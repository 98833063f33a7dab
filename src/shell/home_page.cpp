#include "shell/home_page.h"

#include <string>
#include <string_view>

#include "helpers/diagnostic_tests.h"
#include "helpers/text_helpers.h"
#include "window/panels.h"

namespace tidemark {
namespace {

// Of the last scan, none of which has been repaired or dropped.
bool HasResults(const frmMain& window) {
  return window.lvFound.Count() > 0 && window.lvInvalidLoc.Count() > 0;
}

}  // namespace

void ShowScanState(frmMain& window) {
  // The repair's stop button is there as long as the repair runs.
  const bool repairs = window.cmdStopFix.Visible();
  const bool works = window.ScanRunning || repairs;
  window.lblScanState.SetVisible(works);
  window.TmrScanState.SetEnabled(works);
  if (!works) return;
  std::string text = repairs ? "A repair is running" : "A scan is running";
  const DiagnosticTest* test = FindDiagnosticTest(window.CurrentLocation);
  if (!repairs && test != nullptr) text.append(" : ").append(test->name);
  const int percent = repairs ? window.ProgressBar2.Percent() : window.pbarScan.Percent();
  window.lblScanState.SetCaption(text + ", " + std::to_string(percent) +
                                 " %. Click here to see it.");
}

void ShowWaysFromHome(frmMain& window) {
  constexpr unsigned kBlack = 0;
  const bool leads_on = HasResults(window);
  window.lblLastscan.SetForeColor(leads_on ? window.lblScanState.ForeColor() : kBlack);
  window.lblLastscan.SetToolTipText(leads_on ? "Show the results" : "");
  ShowScanState(window);
}

void lblLastscan_Click(frmMain& window) {
  if (window.ScanRunning || window.cmdStopFix.Visible()) return window.cmdMenuScan.Click();
  if (!HasResults(window)) return;
  HideAllFrames(window);
  HighLightButtons(window);
  LoadProgramPicture(window, window.cmdMenuScan, "\\images\\RegistryScan2.jpg");
  window.picClear.SetVisible(true);
}

void NameHealth(frmMain& window) {
  const std::string_view picture = window.IMGRegistryStatus.PictureFile();
  std::string_view state = "Unknown, no scan has ended";
  if (picture.ends_with("RegHealth-Low.jpg")) state = "Low, many problems are open";
  if (picture.ends_with("RegHealth-Healthy.jpg")) state = "Healthy, no problem is open";
  // A few leave the picture as it was.
  const double open = LeadingNumber(window.OutstandingErrors);
  if (open >= 1 && open <= 5) state = "Fair, a few problems are open";
  window.IMGRegistryStatus.SetAccessibleName(std::string("Registry health: ").append(state));
}

}  // namespace tidemark
