#include "toolkit/option_button.h"

namespace tidemark {

void OptionButton::SetValue(bool value) {
  value_ = value;
  if (!value || Container() == nullptr) return;
  for (Control* sibling : Container()->Controls()) {
    auto* other = dynamic_cast<OptionButton*>(sibling);
    if (other != nullptr && other != this) other->value_ = false;
  }
}

void OptionButton::Click() {
  if (!Enabled()) return;
  SetValue(true);
  Clicked();
}

}  // namespace tidemark
