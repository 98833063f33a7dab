// A box with one line of text that a person can edit.
#pragma once

#include <string>
#include <string_view>

#include "toolkit/controls.h"

namespace tidemark {

class TextBox : public Control {
 public:
  using Control::Control;
  Event<> Changed;  // the text has changed, by a person or by the program, as on the platform

  const tidemark::Text& Text() const { return text_; }
  // Raises Changed when the text is another one; the selection goes to its start.
  void SetText(tidemark::Text text);

  // The selection is counted in bytes of the text, and cut to what the text has. It holds whole
  // characters: a start or an end inside a character takes in all of it.
  int SelStart() const { return sel_start_; }
  void SetSelStart(int start);  // the selection is empty then
  int SelLength() const { return sel_length_; }
  void SetSelLength(int length);
  std::string SelText() const;
  // Puts the text in the place of the selection, and the empty selection behind it.
  void SetSelText(std::string_view text);

  bool Locked() const { return locked_; }  // can be read and selected, not edited
  void SetLocked(bool locked) { locked_ = locked; }
  // 0 is no border, 1 a sunken one. It is fixed when the window is made.
  int BorderStyle() const { return border_style_; }
  void SetBorderStyle(int style) { border_style_ = style; }
  // As the colours of a Label.
  unsigned BackColor() const { return back_color_; }
  void SetBackColor(unsigned color) { back_color_ = color; }
  unsigned ForeColor() const { return fore_color_; }
  void SetForeColor(unsigned color) { fore_color_ = color; }

 private:
  // Takes the text with an empty selection at `start`, and raises Changed when it is another one.
  void Replace(tidemark::Text text, int start);
  int Size() const { return static_cast<int>(text_.View().size()); }

  tidemark::Text text_;
  int sel_start_ = 0;
  int sel_length_ = 0;
  bool locked_ = false;
  int border_style_ = 1;
  unsigned back_color_ = 0xFFFFFF;
  unsigned fore_color_ = 0;
};

}  // namespace tidemark
