// A task of the platform's Task Scheduler that starts a program when this user logs on, with the
// highest rights the user has. The Run keys start nothing that needs elevation, so the entry there
// is without effect for an administrator. One interface, two implementations: the Task Scheduler's
// ITaskService on Windows; a hosted PC, where nobody logs on, remembers the task.
#pragma once

#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark {

struct LogonTask {
  std::string file;  // full path of the program, without quotes
  std::string arguments;
};

// Whether this process has an administrator's rights in full, which the registration takes.
bool IsElevated();

// Each user has one task, "Tidemark at logon of " and the user's name, which a new one replaces. A
// failure is the Task Scheduler's status.
HRESULT RegisterLogonTask(const LogonTask& task);

// S_OK also when there is none.
HRESULT RemoveLogonTask();

// The task in the Task Scheduler's XML ("Task Scheduler Schema" of its documentation), of version
// 1.2, which every system since Vista takes. `user` is a user's security identifier or name.
std::string LogonTaskXml(const LogonTask& task, std::string_view user);

}  // namespace tidemark
