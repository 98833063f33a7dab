// The base of all controls: a name, a place in a container, and the properties that every control
// of the platform has. Controls are data; a front end watches them and shows them.
#pragma once

#include <string>
#include <vector>

#include "toolkit/event.h"
#include "toolkit/font.h"
#include "toolkit/text.h"

namespace tidemark {

// Left, top, width and height inside the container, in twips (1440 to an inch).
struct Bounds {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

class Control {
 public:
  // Puts itself in front of the container's other controls. No container: a window.
  Control(Control* container, std::string name);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  // The name by which a person or a script finds the control. A member of a control group bears its
  // index: "lblscanmsg(2)".
  const std::string& Name() const { return name_; }
  Control* Container() const { return container_; }
  // From back to front.
  const std::vector<Control*>& Controls() const { return controls_; }
  // The control of that name in this one's tree, letter case ignored; null when there is none.
  Control* Find(std::string_view name);

  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { visible_ = visible; }
  // Whether a person can see it: it and all its containers are visible.
  bool IsShown() const;
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { enabled_ = enabled; }
  const Text& ToolTipText() const { return tool_tip_; }
  void SetToolTipText(Text text) { tool_tip_ = std::move(text); }
  // What a screen reader says where the control shows no caption of its own: a picture, a list. An
  // "&" stands before its access key, as in a caption.
  const Text& AccessibleName() const { return accessible_name_; }
  void SetAccessibleName(Text name) { accessible_name_ = std::move(name); }
  const tidemark::Font& Font() const { return font_; }
  void SetFont(const tidemark::Font& font) { font_ = font; }
  const Bounds& Place() const { return bounds_; }
  void SetPlace(const Bounds& bounds) { bounds_ = bounds; }
  void BringToFront();

 private:
  std::string name_;
  Control* container_;
  std::vector<Control*> controls_;
  bool visible_ = true;
  bool enabled_ = true;
  Text tool_tip_;
  Text accessible_name_;
  tidemark::Font font_;
  Bounds bounds_;
};

// A control that a person can click.
class ClickControl : public Control {
 public:
  using Control::Control;
  Event<> Clicked;

  // As a person's click: does nothing when the control is disabled.
  virtual void Click() {
    if (Enabled()) Clicked();
  }
};

}  // namespace tidemark
