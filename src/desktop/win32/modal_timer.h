// The loops of the platform's own boxes and menus know nothing of the toolkit's timers; this keeps
// them ticking there.
#pragma once

#include <functional>

#include "platform/winapi.h"

namespace tidemark {

class ModalTimer {
 public:
  // As long as this object lives, whatever loop handles messages calls `look` a few times a second.
  // What it throws is kept, as that of a window's procedure.
  explicit ModalTimer(std::function<void()> look);
  ~ModalTimer();
  ModalTimer(const ModalTimer&) = delete;
  ModalTimer& operator=(const ModalTimer&) = delete;

 private:
  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR timer, DWORD time_ms);

  std::function<void()> look_;
  ModalTimer* outer_;
  UINT_PTR timer_;
};

}  // namespace tidemark
