#include "toolkit/control.h"

#include <algorithm>
#include <utility>

#include "platform/letter_case.h"

namespace tidemark {

Control::Control(Control* container, std::string name)
    : name_(std::move(name)), container_(container) {
  if (container_ != nullptr) container_->controls_.push_back(this);
}

Control* Control::Find(std::string_view name) {
  if (CompareIgnoringCase(name_, name) == 0) return this;
  for (Control* control : controls_) {
    if (Control* found = control->Find(name)) return found;
  }
  return nullptr;
}

bool Control::IsShown() const {
  for (const Control* control = this; control != nullptr; control = control->container_) {
    if (!control->visible_) return false;
  }
  return true;
}

void Control::BringToFront() {
  if (container_ == nullptr) return;
  auto& siblings = container_->controls_;
  const auto here = std::find(siblings.begin(), siblings.end(), this);
  std::rotate(here, here + 1, siblings.end());
}

}  // namespace tidemark
