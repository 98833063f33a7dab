#include "desktop/terminal/due_timers.h"

#include <algorithm>
#include <limits>

namespace tidemark {
namespace {

void AddRunning(const Control& container, std::vector<Timer*>& timers) {
  for (Control* control : container.Controls()) {
    AddRunning(*control, timers);
    auto* timer = dynamic_cast<Timer*>(control);
    if (timer == nullptr) continue;
    if (timer->Enabled() && timer->Interval() > 0) timers.push_back(timer);
  }
}

}  // namespace

void DueTimers::Follow(const std::vector<Desk::ShownForm>& forms, ULONGLONG now) {
  std::vector<Timer*> timers;
  for (const Desk::ShownForm& shown : forms) AddRunning(*shown.form, timers);
  std::erase_if(running_, [&timers](const auto& entry) {
    return std::find(timers.begin(), timers.end(), entry.first) == timers.end();
  });
  for (Timer* timer : timers) {
    Running& running = running_[timer];
    if (running.interval_ms == timer->Interval()) continue;
    running = {timer->Interval(), now + static_cast<ULONGLONG>(timer->Interval())};
  }
}

Timer* DueTimers::Take(const std::vector<Desk::ShownForm>& forms, ULONGLONG now) {
  Follow(forms, now);
  for (auto& [timer, running] : running_) {
    if (running.due > now) continue;
    const auto interval = static_cast<ULONGLONG>(running.interval_ms);
    running.due += interval;
    if (running.due <= now) running.due = now + interval;
    return timer;
  }
  return nullptr;
}

int DueTimers::Wait(ULONGLONG now) const {
  ULONGLONG wait = std::numeric_limits<int>::max();
  for (const auto& [timer, running] : running_) {
    wait = std::min(wait, running.due > now ? running.due - now : 0);
  }
  return running_.empty() ? -1 : static_cast<int>(wait);
}

}  // namespace tidemark
