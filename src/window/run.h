// What the long runs of the window have in common: a scan, a repair, a junk scan and a removal of
// junk all yield, and at a yield another one may be started on top of it.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// A run on the stack, about the findings of the last scan that was begun. As long as there is one,
// the buttons that would start another are disabled; the schedule asks no button.
class Run {
 public:
  explicit Run(frmMain& window);
  ~Run();
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

 private:
  frmMain& window_;
  unsigned scan_of_older_;  // of the run below this one
};

// Whether a younger scan has filled the lists anew at a yield of the run in work, which is then to
// end at once and to leave what it sees as it is: that is no longer what the run was about.
bool IsOvertaken(const frmMain& window);

// The same, or a stop was requested.
bool MustEnd(const frmMain& window);

}  // namespace tidemark
