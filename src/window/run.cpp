#include "window/run.h"

namespace tidemark {
namespace {

void EnableStarts(frmMain& window, bool enabled) {
  for (CommandButton* start :
       {&window.cmdScanNow, &window.cmdScan, &window.cmdFix, &window.cmdJunkScan}) {
    start->SetEnabled(enabled);
  }
}

}  // namespace

Run::Run(frmMain& window) : window_(window), scan_of_older_(window.ScanOfRun) {
  window_.ScanOfRun = window_.ScansBegun;
  if (window_.RunsUnderWay++ == 0) EnableStarts(window_, false);
}

Run::~Run() {
  window_.ScanOfRun = scan_of_older_;
  if (--window_.RunsUnderWay == 0) EnableStarts(window_, true);
}

bool IsOvertaken(const frmMain& window) {
  return window.RunsUnderWay > 0 && window.ScanOfRun != window.ScansBegun;
}

bool MustEnd(const frmMain& window) { return window.StopRequested || IsOvertaken(window); }

}  // namespace tidemark
