#include "toolkit/script_front_end.h"

#include <algorithm>
#include <utility>

namespace tidemark {

void ScriptFrontEnd::AtYield(long yield, std::function<void()> action) {
  at_yield_.emplace(yield, std::move(action));
}

void ScriptFrontEnd::When(std::function<bool()> condition, std::function<void()> action) {
  when_.push_back({std::move(condition), std::move(action)});
}

void ScriptFrontEnd::DoEvents() {
  ++yields_;
  while (!at_yield_.empty() && at_yield_.begin()->first <= yields_) {
    const auto action = std::move(at_yield_.begin()->second);
    at_yield_.erase(at_yield_.begin());
    action();
  }
  for (std::size_t step = 0; step < when_.size(); ++step) {
    if (!when_[step].condition()) continue;
    const auto action = std::move(when_[step].action);
    when_.erase(when_.begin() + static_cast<std::ptrdiff_t>(step));
    action();
    return;
  }
}

void ScriptFrontEnd::Show(Form& form) {
  if (std::find(loaded_.begin(), loaded_.end(), &form) == loaded_.end()) {
    loaded_.push_back(&form);
    form.Load();
  }
  form.SetVisible(true);
}

void ScriptFrontEnd::Unload(Form& form) {
  form.SetVisible(false);
  if (std::erase(loaded_, &form) > 0) form.Unload();
}

void ScriptFrontEnd::ShowMessage(std::string_view text, std::string_view title) {
  messages_.push_back(std::string(title) + ": " + std::string(text));
}

void ScriptFrontEnd::SetMousePointer(MousePointer pointer) { pointers_.push_back(pointer); }

void ScriptFrontEnd::End() { throw ProcessEnded{}; }

}  // namespace tidemark
