#include "platform/logon_task.h"

#include "platform/hosted/logon_tasks.h"

namespace {

tidemark::hosted::LogonTasks tasks;

}  // namespace

namespace tidemark {

namespace hosted {

LogonTasks& TheLogonTasks() { return tasks; }

}  // namespace hosted

// The one user of a hosted PC may do everything.
bool IsElevated() { return true; }

HRESULT RegisterLogonTask(const LogonTask& task) {
  if (tasks.status == S_OK) tasks.task = task;
  return tasks.status;
}

HRESULT RemoveLogonTask() {
  if (tasks.status == S_OK) tasks.task.reset();
  return tasks.status;
}

}  // namespace tidemark
