// The front end for a person at a terminal: the page fills the screen, live while a scan or a
// repair runs; keys and mouse act on its controls; boxes and menus are windows over it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "desktop/terminal/desk_front_end.h"
#include "desktop/terminal/screen/curses_screen.h"
#include "desktop/terminal/screen/form_focus.h"
#include "desktop/terminal/screen/layout.h"
#include "desktop/terminal/screen/list_acts.h"
#include "toolkit/text_box.h"

namespace tidemark {

class ScreenFrontEnd : public DeskFrontEnd {
 public:
  explicit ScreenFrontEnd(CursesScreen& screen) : screen_(screen) {}

  void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) override;
  bool AskYesNo(std::string_view text, std::string_view title) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  std::string BrowseForFolder(std::string_view title) override;
  void PopupMenu(Menu& menu) override;
  void CopyText(std::string_view text) override;
  void Beep() override { screen_.Beep(); }

 private:
  // What the last line is used for.
  enum class Entry { kNone, kCommand, kFind };

  void AwaitInput() override;
  void LookForInput() override;
  void TakeOff(const Form& form) override;
  void ShowOutput(const std::string& output) override { ShowText("Tidemark", output); }
  // A text to be read, in a window that scrolls.
  void ShowText(std::string_view title, const std::string& text);
  // Until the form is closed, or has been answered.
  void RunModally(Form& form, const bool& answered);

  // screen_drawing.cpp
  void Draw();
  void DrawPage(const Form& top);
  void DrawStatus();
  // The keys that work here, as many as fit.
  std::string Hint(int width) const;
  bool IsTooSmall() const;
  Area PageArea() const;
  int WidestWindow() const;  // in columns, without its frame
  // Of a window over the page, with its frame.
  Area WindowArea(const Form& form) const;
  Layout LayoutOf(const Form& form) const;
  Area TrayArea() const;

  // The window that the keyboard acts on; null when the main window is hidden or minimised and no
  // other is there.
  Form* Top() const;
  // What stands in it now, with its focus.
  void LookAtTop();

  // screen_acts.cpp
  void Handle(const ScreenInput& input);
  void OnKey(const ScreenInput& input);
  bool OnEntryKey(const ScreenInput& input);
  bool OnListKey(const ScreenInput& input);
  bool OnCommonKey(const ScreenInput& input);
  bool ScrollTexts(int lines);
  bool OnLetter(const ScreenInput& input);
  void OnAwayKey(const ScreenInput& input);
  bool OnAccessKey(char32_t character);
  void OnEnter();
  void OnEscape();
  void OnSpace();
  void OnMouse(const ScreenInput& input);
  void OnListMouse(Rows& list, const Area& area, const ScreenInput& input);
  void Press(Control& control);
  void OpenMenu();
  void OpenTrayMenu();
  void MarkAll();
  void BeginEntry(Entry entry);
  void EndEntry() { entry_ = Entry::kNone; }
  void RunEntry();
  void Find(FindFrom from);
  // Asks first when that is wanted, or work goes on.
  void Leave(bool ask);
  void Help();
  ListShape ShapeOfFocused(const Rows& list);

  CursesScreen& screen_;
  std::map<const Form*, FormFocus> focus_;
  // The top window, as it is laid out for the input that is handled.
  Form* top_ = nullptr;
  Layout layout_;
  std::vector<PlacedControl> reachable_;
  Control* focused_ = nullptr;
  int scrolled_ = 0;  // lines of its texts that are out of sight above

  ListRange range_;
  Entry entry_ = Entry::kNone;
  TextBox entry_text_{nullptr, "entry"};
  std::string notice_;
  const Form* menu_ = nullptr;  // a menu that is open
  int menu_row_ = 0;            // where it opens
  int menu_column_ = 0;

  Clock::time_point last_look_;
  Clock::time_point last_draw_;
};

}  // namespace tidemark
