#include "desktop/win32/modal_timer.h"

#include <utility>

#include "desktop/win32/guarded.h"

namespace tidemark {
namespace {

constexpr UINT kPause_ms = 250;

// The platform's call has no place for an object.
ModalTimer* innermost = nullptr;

}  // namespace

ModalTimer::ModalTimer(std::function<void()> look)
    : look_(std::move(look)),
      outer_(std::exchange(innermost, this)),
      timer_(SetTimer(nullptr, 0, kPause_ms, OnTimer)) {}

ModalTimer::~ModalTimer() {
  KillTimer(nullptr, timer_);
  innermost = outer_;
}

void CALLBACK ModalTimer::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  if (innermost == nullptr) return;
  Guarded([] {
    innermost->look_();
    return LRESULT{0};
  });
}

}  // namespace tidemark
