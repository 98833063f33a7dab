#include "toolkit/focus.h"

#include <algorithm>

#include "toolkit/option_button.h"

namespace tidemark {

bool IsTabStop(const Control& control) {
  const auto* option = dynamic_cast<const OptionButton*>(&control);
  if (option == nullptr || option->Value()) return true;
  const OptionButton* first = nullptr;
  for (const Control* sibling : option->Container()->Controls()) {
    const auto* other = dynamic_cast<const OptionButton*>(sibling);
    if (other == nullptr || !other->Visible() || !other->Enabled()) continue;
    if (other->Value()) return false;
    if (first == nullptr) first = other;
  }
  return first == option;
}

bool InOneGroup(const Control& left, const Control& right) {
  if (left.Container() != right.Container()) return false;
  const auto is_option = [](const Control& control) {
    return dynamic_cast<const OptionButton*>(&control) != nullptr;
  };
  const auto is_label = [](const Control& control) {
    return dynamic_cast<const Label*>(&control) != nullptr;
  };
  return (is_option(left) && is_option(right)) || (is_label(left) && is_label(right));
}

CommandButton* FindButton(const std::vector<Control*>& controls,
                          bool (CommandButton::*wanted)() const) {
  for (Control* control : controls) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button != nullptr && (button->*wanted)()) return button;
  }
  return nullptr;
}

Control& FirstFocus(const std::vector<Control*>& reachable) {
  if (CommandButton* button = FindButton(reachable, &CommandButton::Default)) return *button;
  const auto on_page = std::find_if(reachable.begin(), reachable.end(), [](const Control* control) {
    return control->Container()->Container() != nullptr;
  });
  return on_page == reachable.end() ? *reachable.front() : **on_page;
}

}  // namespace tidemark
