// The program's own push button: a caption on a painted face that follows the mouse. A front end
// passes on the raw mouse and key acts; the button makes its faces and its Click of them.
#pragma once

#include <cstdint>
#include <string>

#include "controls/button_painting.h"
#include "toolkit/bitmap.h"
#include "toolkit/canvas_control.h"
#include "toolkit/timer.h"

namespace tidemark {

class xpcmdbutton : public CanvasControl {
 public:
  // Its caption is the name until another is set, its font that of the container.
  xpcmdbutton(Control* container, std::string name);

  // Raised to the container; x and y in pixels from the control's left top corner. Button: 1 left,
  // 2 right, 4 middle; shift: 1 Shift, 2 Ctrl, 4 Alt. Acts on the caption are the button's own: it
  // is no window by itself.
  Event<int, int, int, int> MouseDown;
  Event<int, int, int, int> MouseMove;  // inside the control only
  Event<int, int, int, int> MouseUp;
  Event<> MouseLeave;
  Event<int, int> KeyDown;  // key code, shift
  Event<int> KeyPress;      // character
  Event<int, int> KeyUp;

  // An "&" stands before the access key, two for one that is painted.
  const Text& Caption() const { return look_.caption; }
  void SetCaption(Text caption);
  void SetEnabled(bool enabled);
  const tidemark::Font& Font() const { return look_.font; }
  void SetFont(const tidemark::Font& font);
  // 0 rests on face 0, 1 on face 4; any other leaves the resting face as it is.
  int State() const { return state_; }
  void SetState(int state);

  // The glyph at the left; an empty bitmap for none. Less than 32 pixels high it is painted 16 by
  // 16 pixels at 96 dots per inch, otherwise 32 by 32.
  const Bitmap& Picture() const { return look_.picture; }
  void SetPicture(Bitmap picture);
  // The same from a ".bmp" file. False for a file that is missing or no such picture: the old glyph
  // stays.
  bool LoadPicture(const std::string& file);
  // The picture clip of the faces: a ".bmp" file with five cells of one size side by side, in the
  // order of ButtonFace, at least 7 by 7 pixels each. False, and the faces stay, for any other
  // file. Without artwork the button shows the built-in faces.
  bool LoadFaces(const std::string& file);

  // The face that is painted.
  ButtonFace Face() const { return look_.face; }
  // Picks the resting face and paints.
  void RefreshFace();

  // What a person does. A front end calls these, with the mouse captured while a button is down;
  // they paint and raise the events. A disabled button does nothing.
  void UserMouseDown(int button, int shift, int x, int y);
  void UserMouseMove(int button, int shift, int x,
                     int y);  // button: the sum of those that are down
  // Pressed and released inside, the left button raises Click after MouseUp.
  void UserMouseUp(int button, int shift, int x, int y);
  void UserKeyDown(int key_code, int shift);
  // A blank and Enter raise Click.
  void UserKeyPress(int character);
  void UserKeyUp(int key_code, int shift);
  // Alt and the access key of the caption: raises Click.
  void UserAccessKey();
  // Whether the keyboard's acts go to the button: it shows a dotted rectangle then.
  void SetFocused(bool focused);
  // The leave detector, `Timer1`: enabled since the mouse was over the control. Before each tick
  // the front end tells where the cursor is, in pixels from the control's left top corner.
  Timer& LeaveTimer() { return timer_; }
  void SetCursor(int x, int y);

  void SetDisplay(const Display& display) override;
  void SetSize(int width, int height) override;
  const Canvas& Painting() override;
  std::uint64_t PaintingVersion() const override { return version_; }

 private:
  bool IsInside(int x, int y) const;
  void PaintFace(ButtonFace face);
  void Timer1_Timer();
  // Takes over a part of the look, and marks the painting when it is another one.
  template <class T>
  void Show(T& part, T value);

  ButtonLook look_;
  Timer timer_{nullptr, "Timer1"};
  int state_ = 0;
  ButtonFace stored_face_ = ButtonFace::kResting;
  bool pressed_ = false;  // the left button went down here and is not up again
  int cursor_x_ = -1;
  int cursor_y_ = -1;
  Canvas picture_;
  std::uint64_t version_ = 1;
  std::uint64_t painted_version_ = 0;
};

}  // namespace tidemark
