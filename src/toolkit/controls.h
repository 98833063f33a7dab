// The small controls of the platform: labels, buttons, check boxes, pictures, windows.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "toolkit/control.h"
#include "toolkit/picture.h"

namespace tidemark {

class ListView;

class Label : public ClickControl {
 public:
  using ClickControl::ClickControl;
  const Text& Caption() const { return caption_; }
  void SetCaption(Text caption) { caption_ = std::move(caption); }

  // A transparent label shows what lies behind it, and no colour of its own.
  bool Transparent() const { return transparent_; }
  void SetTransparent(bool transparent) { transparent_ = transparent; }
  // Colours as the platform's design data writes them: 0x00BBGGRR, or a system colour's number with
  // the top bit set.
  unsigned BackColor() const { return back_color_; }
  void SetBackColor(unsigned color) { back_color_ = color; }
  unsigned ForeColor() const { return fore_color_; }
  void SetForeColor(unsigned color) { fore_color_ = color; }

  // The list over whose visible columns the caption's words stand, one each, with runs of blanks
  // between them; null for every other label.
  const ListView* heads = nullptr;

 private:
  Text caption_;
  unsigned back_color_ = 0xFFFFFF;
  unsigned fore_color_ = 0;
  bool transparent_ = false;
};

class CommandButton : public ClickControl {
 public:
  using ClickControl::ClickControl;
  const Text& Caption() const { return caption_; }
  void SetCaption(Text caption) { caption_ = std::move(caption); }

  // The button that Enter presses while no other button has the focus, and the one that Esc
  // presses; of several the first that can be seen.
  bool Default() const { return default_; }
  void SetDefault(bool is_default) { default_ = is_default; }
  bool Cancel() const { return cancel_; }
  void SetCancel(bool cancel) { cancel_ = cancel; }

 private:
  Text caption_;
  bool default_ = false;
  bool cancel_ = false;
};

// Value 1 is checked. A person's click turns it over and raises Clicked; setting Value raises
// nothing.
class CheckBox : public CommandButton {
 public:
  using CommandButton::CommandButton;
  int Value() const { return value_; }
  void SetValue(int value) { value_ = value; }

  void Click() override {
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
  const std::string& PictureFile() const { return picture_.File(); }
  // Loads another picture. A file that is missing leaves the old picture.
  void LoadPicture(const std::string& file) { picture_.Load(file); }
  // The picture that the control has by design; it need not be there.
  void SetPictureFile(std::string file) { picture_.SetFile(std::move(file)); }

 private:
  Picture picture_;
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

// A short film that says that work goes on. It runs while the work does. Its picture file is a
// strip of square frames from left to right.
class Animation : public ImageBox {
 public:
  using ImageBox::ImageBox;
  bool Playing() const { return playing_; }
  void SetPlaying(bool playing) { playing_ = playing; }

 private:
  bool playing_ = false;
};

// The platform's plain progress bar.
class ProgressBar : public Control {
 public:
  using Control::Control;
  int Max() const { return max_; }
  void SetMax(int max) { max_ = max; }
  int Value() const { return value_; }
  // A value that is not from 0 to Max is not taken, as on the platform.
  void SetValue(int value) {
    if (value >= 0 && value <= max_) value_ = value;
  }

 private:
  int max_ = 100;
  int value_ = 0;
};

enum class WindowState { kNormal, kMinimized };

enum class FormFrame {
  kNone,    // no frame and no caption
  kWindow,  // caption with close and minimise buttons, of a fixed size
  kDialog,  // caption with a close button alone
};

class Form : public Control {
 public:
  explicit Form(std::string name) : Control(nullptr, std::move(name)) { SetVisible(false); }

  const Text& Caption() const { return caption_; }
  void SetCaption(Text caption) { caption_ = std::move(caption); }
  WindowState State() const { return state_; }
  void SetState(WindowState state) { state_ = state; }
  bool Topmost() const { return topmost_; }
  void SetTopmost(bool topmost) { topmost_ = topmost; }

  FormFrame Frame() const { return frame_; }
  void SetFrame(FormFrame frame) { frame_ = frame; }
  // A question has to be answered: its frame has no close button, and a button's access key presses
  // it without Alt.
  bool IsQuestion() const { return is_question_; }
  void SetQuestion(bool is_question) { is_question_ = is_question; }
  // The picture that fills the form behind its controls; empty for none.
  const std::string& PictureFile() const { return picture_file_; }
  void SetPictureFile(std::string file) { picture_file_ = std::move(file); }
  // The unit of the coordinates in MouseMove: 1 is twips, 3 is pixels.
  int ScaleMode() const { return scale_mode_; }
  void SetScaleMode(int mode) { scale_mode_ = mode; }

  // The mouse has moved over the form's own background: button, shift, x, y. The callbacks of a
  // tray icon come the same way, their number in x: pixels, turned into the unit of ScaleMode.
  Event<int, int, double, double> MouseMove;
  // A person asks for help, as with F1.
  Event<> Help;
  // How far the work of the window is, in percent, for the task bar's button; a negative number is
  // no work. Unbound: none.
  std::function<int()> Progress;

  Event<> Load;    // raised by the front end before the form is first shown
  Event<> Unload;  // raised by the front end when the form is closed, by a person or by the program

 private:
  Text caption_;
  std::string picture_file_;
  WindowState state_ = WindowState::kNormal;
  FormFrame frame_ = FormFrame::kWindow;
  int scale_mode_ = 1;
  bool topmost_ = false;
  bool is_question_ = false;
};

}  // namespace tidemark
