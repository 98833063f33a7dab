// The progress bar on a window's button in the task bar.
#pragma once

#include <optional>

#include "platform/winapi.h"
#include "platform/windows/com.h"

struct ITaskbarList3;

namespace tidemark {

// Where the system has no such thing, nothing happens. For the thread that owns the window.
class TaskBarButton {
 public:
  explicit TaskBarButton(HWND window) : window_(window) {}
  // From 0 to 100; negative: no progress. The same number again costs nothing.
  void SetProgress(int percent);
  // A restarted shell has made a new button: the progress is shown anew when it is next set.
  void Forget() { shown_ = -1; }

 private:
  ITaskbarList3* TaskBar();

  HWND window_;
  int shown_ = -1;
  bool tried_ = false;
  std::optional<ComApartment> apartment_;
  ComPointer<ITaskbarList3> task_bar_;
};

}  // namespace tidemark
