// The terminal, taken over as a whole by ncurses: what is drawn, and what a person does. The screen
// comes back as it was when the object goes, and when the process is stopped or dies.
#pragma once

#include <cstdio>
#include <optional>
#include <string_view>

#include "desktop/terminal/screen/area.h"

namespace tidemark {

// The roles that a text plays. They differ in brightness and colour, where there are any; where
// what is meant would be lost without, a character says it too.
enum class Style {
  kPlain,
  kStrong,
  kFaint,   // disabled, or beside the point
  kFrame,   // rules and frames
  kTitle,   // of a list or a window
  kFocus,   // what the keyboard acts on
  kChosen,  // the page that is up
  kMarked,  // rows of a range
  kStatus,  // the last line
  kBar,     // what a progress bar has filled
  kGood,
  kNotice,
  kWarning,
  kBad,
  kAlarm,
};

enum class Key {
  kNone,
  kCharacter,
  kEnter,
  kEscape,
  kTab,
  kBackTab,
  kUp,
  kDown,
  kLeft,
  kRight,
  kShiftUp,
  kShiftDown,
  kPageUp,
  kPageDown,
  kHome,
  kEnd,
  kBackspace,
  kDelete,
  kMenu,  // Shift+F10, or the key of that name
  kHelp,  // F1
  kTray,  // F10
};

enum class MouseAct { kPress, kDoublePress, kRightPress, kWheelUp, kWheelDown };

struct ScreenInput {
  enum class Kind {
    kNothing,  // the time ran out
    kKey,
    kMouse,
    kResized,  // the terminal has another size, or its contents are lost
    kClose,    // Ctrl+C, or the system asks the program to go
  };
  Kind kind = Kind::kNothing;
  Key key = Key::kNone;
  char32_t character = 0;  // of kCharacter; a control character has its letter's number, from 1
  bool alt = false;
  MouseAct act = MouseAct::kPress;
  int row = 0;
  int column = 0;
};

class CursesScreen {
 public:
  // Whether standard input and output are a terminal that can move its cursor.
  static bool IsAvailable();

  // Make one at a time: it takes over the process's signals.
  explicit CursesScreen(std::FILE* input = stdin, std::FILE* output = stdout);
  ~CursesScreen();
  CursesScreen(const CursesScreen&) = delete;
  CursesScreen& operator=(const CursesScreen&) = delete;

  int Width() const;
  int Height() const;

  // Drawing goes to a picture in memory; Show brings to the terminal what differs.
  void Clear();
  // Displayable text. What reaches beyond the screen's edge is cut off. `key` is the first byte of
  // a character that is underlined.
  void Put(int row, int column, std::string_view text, Style style = Style::kPlain,
           std::optional<std::size_t> key = {});
  // Blanks.
  void Fill(const Area& area, Style style = Style::kPlain);
  void Rule(int row, int column, int width);
  void Frame(const Area& area);
  // The cursor stands there in the next Show, and is hidden in those that follow.
  void PutCursor(int row, int column);
  void Show();
  void Beep();
  // To the clipboard of the terminal, where that takes it (xterm's control sequence 52).
  void CopyText(std::string_view text);

  // Waits for the next input; 0 does not wait, a negative time waits for ever.
  ScreenInput Wait(int timeout_ms);

 private:
  std::optional<ScreenInput> Read();
  bool cursor_ = false;
};

}  // namespace tidemark
