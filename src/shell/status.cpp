#include "shell/status.h"

#include <string>

#include "helpers/text_helpers.h"
#include "platform/locale_texts.h"
#include "registry/stored_settings.h"
#include "scan/locations.h"
#include "shell/home_page.h"
#include "window/panels.h"

namespace tidemark {
namespace {

// A few open problems, 1 to 5, leave the picture as it is. On purpose.
void ShowHealth(frmMain& window) {
  constexpr double kFewProblems = 5;
  const double errors = LeadingNumber(window.OutstandingErrors);
  if (window.OutstandingErrors.empty()) {
    LoadProgramPicture(window, window.IMGRegistryStatus, "\\Images\\RegHealth-Unknown.jpg");
  } else if (errors > kFewProblems) {
    LoadProgramPicture(window, window.IMGRegistryStatus, "\\Images\\RegHealth-Low.jpg");
  } else if (errors == 0) {
    LoadProgramPicture(window, window.IMGRegistryStatus, "\\Images\\RegHealth-Healthy.jpg");
  }
}

}  // namespace

void SetInitValues(frmMain& window) {
  SetStat(window);
  window.lblTotaltodate.SetCaption(Setting("TotalCount", "0"));
  window.lblLastscan.SetCaption(Setting("LastCount", "0"));
  ShowHealth(window);
  NameHealth(window);
  TakeNumber(window.ShowinSystray, Setting("ShowinSystray", "0"));
  TakeNumber(window.chkSelectAll, Setting("SelectAllLoc", "0"));
  window.LoadOptions();
  LoadLocations(window);
  ShowUnknownTests(window);
  window.Loadbackup();
  window.Scheduler();
  // "ChkRecyclebin" is read for a check box that does not exist; it has no effect, on purpose.
}

void SetStat(frmMain& window) {
  window.LastRunTime = Setting("LastRunTime", "");
  window.LastRunDate = Setting("LastRunDate", "");
  window.OutstandingErrors = Setting("OutstandingErrors", "");
  if (window.LastRunDate.empty()) {
    window.lblLastDate.SetCaption("Date: Not Available   Time: Not Available");
    return;
  }
  // A text that is no date stands as it is stored.
  const auto date = ParseDate(window.LastRunDate);
  const std::string date_text = date ? LongDateText(*date) : window.LastRunDate;
  window.lblLastDate.SetCaption(date_text + " - " + window.LastRunTime);
}

int WorkProgress(const frmMain& window) {
  if (window.ScanRunning) return window.pbarScan.Percent();
  // The repair's stop button is there as long as the repair runs.
  if (window.cmdStopFix.Visible()) return window.ProgressBar2.Percent();
  return -1;
}

}  // namespace tidemark
