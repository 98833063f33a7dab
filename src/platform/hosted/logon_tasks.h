// What the hosted PC has of a Task Scheduler.
#pragma once

#include <optional>

#include "platform/logon_task.h"

namespace tidemark::hosted {

struct LogonTasks {
  std::optional<LogonTask> task;
  HRESULT status = S_OK;  // what the next calls answer; a failure changes nothing
};

// Of the process.
LogonTasks& TheLogonTasks();

}  // namespace tidemark::hosted
