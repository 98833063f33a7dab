// The folder picker: a text box that holds a folder's path, with a button at its right end that
// opens the platform's folder dialog. Its properties are those of the text box.
#pragma once

#include <string>
#include <string_view>

#include "controls/ole_color.h"
#include "toolkit/controls.h"
#include "toolkit/front_end.h"
#include "toolkit/text_box.h"

namespace tidemark {

class GetFolder : public Control {
 public:
  // The front end outlives the control.
  GetFolder(Control* container, std::string name, FrontEnd& front_end);

  Event<> Change;  // the text has changed

  TextBox txtFolder;
  CommandButton cmdBrowse;

  OleColor BackColor() const { return txtFolder.BackColor(); }
  void SetBackColor(OleColor color) { txtFolder.SetBackColor(color); }
  OleColor ForeColor() const { return txtFolder.ForeColor(); }
  void SetForeColor(OleColor color) { txtFolder.SetForeColor(color); }
  // Disables or enables the whole: text box and button too.
  void SetEnabled(bool enabled);
  const tidemark::Font& Font() const { return txtFolder.Font(); }
  void SetFont(const tidemark::Font& font) { txtFolder.SetFont(font); }
  bool Locked() const { return txtFolder.Locked(); }
  void SetLocked(bool locked) { txtFolder.SetLocked(locked); }
  int SelLength() const { return txtFolder.SelLength(); }
  void SetSelLength(int length) { txtFolder.SetSelLength(length); }
  int SelStart() const { return txtFolder.SelStart(); }
  void SetSelStart(int start) { txtFolder.SetSelStart(start); }
  std::string SelText() const { return txtFolder.SelText(); }
  void SetSelText(std::string_view text) { txtFolder.SetSelText(text); }
  const tidemark::Text& Text() const { return txtFolder.Text(); }
  void SetText(tidemark::Text text) { txtFolder.SetText(std::move(text)); }

  // Counts how often it was asked for; front ends see by themselves what has changed.
  void Refresh() { ++refreshes_; }
  int Refreshes() const { return refreshes_; }

  // Asks for a folder; a choice becomes the text, cancelling leaves it.
  void cmdBrowse_Click();
  // Alt and the down arrow, wherever in the control, act as the button.
  void UserKeyDown(int key_code, int shift);
  // For a window that shows the control, when it becomes visible to a person: its text box takes
  // over its tool tip. The main window keeps it hidden and calls neither this nor Resize.
  void UserShow();
  // Likewise, when its place has changed: lays the two controls out in it.
  void Resize();

  // The line that is painted between text box and button, in twips inside the control, and its
  // colour.
  Bounds Line() const;
  static constexpr OleColor kLineColor = 0x80000016;

 private:
  // A path, or empty where there is none to take.
  tidemark::Text BrowseForFolderPath(std::string_view title);

  FrontEnd& front_end_;
  int refreshes_ = 0;
};

}  // namespace tidemark
