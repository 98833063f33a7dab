#include "desktop/win32/task_bar_button.h"

#include <algorithm>

namespace tidemark {

ITaskbarList3* TaskBarButton::TaskBar() {
  if (tried_) return task_bar_.get();
  tried_ = true;
  apartment_.emplace();
  task_bar_ = MakeComObject<ITaskbarList3>(CLSID_TaskbarList, IID_ITaskbarList3);
  if (task_bar_ && FAILED(task_bar_->HrInit())) task_bar_.reset();
  return task_bar_.get();
}

void TaskBarButton::SetProgress(int percent) {
  percent = std::clamp(percent, -1, 100);
  if (percent == shown_) return;
  shown_ = percent;
  ITaskbarList3* const task_bar = TaskBar();
  if (task_bar == nullptr) return;
  task_bar->SetProgressState(window_, percent < 0 ? TBPF_NOPROGRESS : TBPF_NORMAL);
  if (percent >= 0) task_bar->SetProgressValue(window_, static_cast<ULONGLONG>(percent), 100);
}

}  // namespace tidemark
