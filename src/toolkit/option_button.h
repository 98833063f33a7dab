// A button of a group of which one is chosen: the group is the option buttons of one container.
#pragma once

#include "toolkit/controls.h"

namespace tidemark {

class OptionButton : public CommandButton {
 public:
  using CommandButton::CommandButton;
  bool Value() const { return value_; }
  // Choosing one clears the others of its container. Raises nothing.
  void SetValue(bool value);

  // As a person's click: a button that is chosen already stays so and raises its event again.
  void Click() override;

 private:
  bool value_ = false;
};

}  // namespace tidemark
