// The small controls of the platform: labels, buttons, check boxes, pictures, windows.
#pragma once

#include <string>
#include <utility>

#include "toolkit/control.h"

namespace tidemark {

class Label : public ClickControl {
 public:
  using ClickControl::ClickControl;
  const Text& Caption() const { return caption_; }
  void SetCaption(Text caption) { caption_ = std::move(caption); }

  // Colours as the platform's design data writes them: 0x00BBGGRR, or a system colour's number with
  // the top bit set.
  unsigned BackColor() const { return back_color_; }
  void SetBackColor(unsigned color) { back_color_ = color; }
  unsigned ForeColor() const { return fore_color_; }
  void SetForeColor(unsigned color) { fore_color_ = color; }

 private:
  Text caption_;
  unsigned back_color_ = 0xFFFFFF;
  unsigned fore_color_ = 0;
};

class CommandButton : public ClickControl {
 public:
  using ClickControl::ClickControl;
  const Text& Caption() const { return caption_; }
  void SetCaption(Text caption) { caption_ = std::move(caption); }

 private:
  Text caption_;
};

// Value 1 is checked. A person's click turns it over and raises Clicked; setting Value raises
// nothing.
class CheckBox : public CommandButton {
 public:
  using CommandButton::CommandButton;
  int Value() const { return value_; }
  void SetValue(int value) { value_ = value; }

  void Click() {
    if (!Enabled()) return;
    value_ = value_ == 1 ? 0 : 1;
    Clicked();
  }

 private:
  int value_ = 0;
};

// A control that shows a picture file.
class ImageBox : public ClickControl {
 public:
  using ClickControl::ClickControl;
  // The picture that is shown; empty before the first one is loaded.
  const std::string& PictureFile() const { return picture_file_; }
  // Loads another picture. A file that is missing leaves the old picture.
  void LoadPicture(const std::string& file);

 private:
  std::string picture_file_;
};

// A picture box as a container of controls: a panel.
class PictureBox : public ImageBox {
 public:
  using ImageBox::ImageBox;
  // 0 is no border, 1 a single line.
  int BorderStyle() const { return border_style_; }
  void SetBorderStyle(int style) { border_style_ = style; }

 private:
  int border_style_ = 1;
};

// A short film that says that work goes on. It runs while the work does.
class Animation : public Control {
 public:
  using Control::Control;
  bool Playing() const { return playing_; }
  void SetPlaying(bool playing) { playing_ = playing; }

 private:
  bool playing_ = false;
};

enum class WindowState { kNormal, kMinimized };

class Form : public Control {
 public:
  explicit Form(std::string name) : Control(nullptr, std::move(name)) { SetVisible(false); }

  const Text& Caption() const { return caption_; }
  void SetCaption(Text caption) { caption_ = std::move(caption); }
  WindowState State() const { return state_; }
  void SetState(WindowState state) { state_ = state; }
  bool Topmost() const { return topmost_; }
  void SetTopmost(bool topmost) { topmost_ = topmost; }

  Event<> Load;    // raised by the front end before the form is first shown
  Event<> Unload;  // raised by the front end when the form is closed, by a person or by the program

 private:
  Text caption_;
  WindowState state_ = WindowState::kNormal;
  bool topmost_ = false;
};

}  // namespace tidemark
