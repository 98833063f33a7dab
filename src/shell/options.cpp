#include "shell/options.h"

#include <array>
#include <cstdio>
#include <string>

#include "platform/logon_task.h"
#include "platform/winapi.h"
#include "registry/mdlRegistry.h"
#include "registry/stored_settings.h"
#include "shell/scheduler.h"

namespace tidemark {
namespace {

constexpr const char* kRunKey = "Software\\Microsoft\\Windows\\CurrentVersion\\Run\\";
constexpr const char* kSwitch = "/m";  // nothing reads it

void EnableButtons(frmMain& window, bool enabled) {
  window.cmdOptApply.SetEnabled(enabled);
  window.cmdOptCancel.SetEnabled(enabled);
}

void EnableSchedules(frmMain& window) {
  const bool enabled = window.chkScheduler.Value() == 1;
  for (int index = 0; index < window.optSchedule.Count(); ++index) {
    window.optSchedule(index).SetEnabled(enabled);
  }
}

std::string ProgramFile(const Application& program) {
  return program.folder + "\\" + program.executable + ".exe";
}

std::string Code(HRESULT status) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "0x%08X", static_cast<unsigned>(status));
  return text.data();
}

// Empty when none is chosen.
std::string ChosenSchedule(frmMain& window) {
  for (int index = 0; index < window.optSchedule.Count(); ++index) {
    if (window.optSchedule(index).Value()) return std::to_string(index);
  }
  return {};
}

}  // namespace

void ShowNextRun(frmMain& window) {
  const std::string next = NextRun(window);
  window.lblNextRun.SetCaption(next.empty() ? "" : "Next run : " + next);
}

void LoadOptions(frmMain& window) {
  TakeNumber(window.chkStartup, Setting("Startup", "1"));
  if (window.chkStartup.Value() == 1) {
    SetStartupEntry(window, true);
    if (!window.LogonTaskTried) SetLogonTask(window, true);
  }
  TakeNumber(window.chkSystray, Setting("ShowinSystray", "0"));
  TakeNumber(window.chkScheduler, Setting("Scheduler", "0"));
  int schedule = -1;
  TakeNumber(schedule, Setting("SchedulerType", "3"));
  // A number that no button has leaves the last choice.
  if (OptionButton* button = window.optSchedule.Find(schedule)) button->SetValue(true);
  EnableButtons(window, false);
  EnableSchedules(window);
}

// The name holds the version, so an entry of an older version is neither seen nor removed.
void SetStartupEntry(const frmMain& window, bool start) {
  const Application& program = window.application;
  const std::string name = program.title + " - " + Application::kMajorMinor;
  if (!start) {
    DeleteRegValue(HKEY_CURRENT_USER, kRunKey, name);
    return;
  }
  const std::string command = ProgramFile(program) + ' ' + kSwitch;
  DWORD disposition = 0;
  WriteRegValue(HKEY_CURRENT_USER, kRunKey, name, command, REG_SZ, disposition);
}

// A program that has lost its elevation may still have a task, so removing is always tried.
void SetLogonTask(frmMain& window, bool start) {
  HRESULT status = S_OK;
  if (!start) {
    status = RemoveLogonTask();
  } else if (window.application.elevated) {
    status = RegisterLogonTask({ProgramFile(window.application), kSwitch});
  }
  window.LogonTaskTried = true;
  window.lblStartupNotice.SetVisible(status < 0);
  window.lblStartupNotice.SetCaption(
      status >= 0 ? ""
      : start     ? "Windows may not start Tidemark: the Task Scheduler took no logon task (" +
                    Code(status) + ")."
              : "Windows may still start Tidemark: the Task Scheduler kept its logon task (" +
                    Code(status) + ").");
}

void chkStartup_Click(frmMain& window) { EnableButtons(window, true); }
void chkSystray_Click(frmMain& window) { EnableButtons(window, true); }
void optSchedule_Click(frmMain& window) { EnableButtons(window, true); }

void chkScheduler_Click(frmMain& window) {
  EnableSchedules(window);
  EnableButtons(window, true);
}

void cmdOptApply_Click(frmMain& window) {
  SaveSetting("Startup", std::to_string(window.chkStartup.Value()));
  SetStartupEntry(window, window.chkStartup.Value() != 0);
  SetLogonTask(window, window.chkStartup.Value() != 0);
  SaveSetting("ShowinSystray", std::to_string(window.chkSystray.Value()));
  SaveSetting("Scheduler", std::to_string(window.chkScheduler.Value()));
  SaveSetting("SchedulerType", ChosenSchedule(window));
  EnableButtons(window, false);
  window.Scheduler();
  ShowNextRun(window);
}

void cmdOptCancel_Click(frmMain& window) { LoadOptions(window); }

}  // namespace tidemark
