// The Options tab: start with Windows, start in the notification area, the schedule. What is set
// there counts when it is applied.
#pragma once

#include "window/frmMain.h"

namespace tidemark {

// Says when the stored schedule will run next.
void ShowNextRun(frmMain& window);

// Shows the stored options. Writes the logon entry again when the program is to start with Windows,
// which it is unless a person has said otherwise; never removes it. The same for the logon task,
// once in the life of the process.
void LoadOptions(frmMain& window);

// Writes or removes the value that makes Windows start the program at logon. Failures are not told.
void SetStartupEntry(const frmMain& window, bool start);

// Registers or removes the logon task that stands beside that value: Windows starts nothing from
// its key that needs elevation. Only an elevated process registers one. A failure is told on the
// page.
void SetLogonTask(frmMain& window, bool start);

// A change of one of the options: there is something to apply or to cancel.
void chkStartup_Click(frmMain& window);
void chkSystray_Click(frmMain& window);
void chkScheduler_Click(frmMain& window);
void optSchedule_Click(frmMain& window);

void cmdOptApply_Click(frmMain& window);
void cmdOptCancel_Click(frmMain& window);

}  // namespace tidemark
