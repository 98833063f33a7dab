// A fresh PC with the real window of Windows on it, and a person before it: a script whose steps
// run in the window's own message loop, press with real messages and read the real controls back.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/win32/win32_front_end.h"
#include "shell/wiring.h"
#include "tests/support/test_pc.h"
#include "window/frmMain.h"

namespace tidemark {

class DesktopPc {
 public:
  DesktopPc();
  ~DesktopPc();
  DesktopPc(const DesktopPc&) = delete;
  DesktopPc& operator=(const DesktopPc&) = delete;

  // One step of the script: as soon as the condition holds, the act is done, once; the next step
  // waits for its own condition.
  void When(std::function<bool()> condition, std::function<void()> act);
  // Shows the window and does `start`, then handles messages until the window was closed. Fails,
  // and closes it, when a step's condition does not hold within 30 seconds.
  void Run(const std::function<void()>& start);
  // The same from the program's entry on: splash, window, first scan.
  void RunProgram();

  // Real messages, posted.
  void Press(const Control& control) const;
  void PressRow(const ListView& list, int row) const;   // rows from 1
  void PressTick(const ListView& list, int row) const;  // its check box
  void CloseWindow() const;

  // Keys, to what has the focus: one by its number, a letter, and Alt with a letter.
  void Type(WPARAM key) const { Post(WM_KEYDOWN, key); }
  void TypeLetter(char letter) const { Post(WM_CHAR, static_cast<WPARAM>(letter)); }
  void Alt(char letter) const { Post(WM_SYSCHAR, static_cast<WPARAM>(letter)); }
  // Whether the control has the focus; presses Tab if not.
  bool TabbedTo(const Control& control) const;

  // What the real controls hold.
  HWND Window(const Control& control) const;
  bool IsShown(const Control& control) const;
  std::string TextOf(const Control& control) const;
  int RowsOf(const ListView& list) const;
  std::string CellOf(const ListView& list, int row, int column) const;  // both from 1
  bool IsTicked(const ListView& list, int row) const;

  TestPc pc;
  Win32FrontEnd front_end;
  frmMain window;

 private:
  struct Step {
    std::function<bool()> condition;
    std::function<void()> act;
  };
  void Post(UINT message, WPARAM key) const {
    const HWND focus = GetFocus();
    PostMessageA(focus != nullptr ? focus : Window(window.form), message, key, 1);
  }
  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time_ms);
  void RunStep();
  void RunScript(const std::function<void()>& entry);
  void PostPress(HWND target, POINT place) const;

  std::vector<Step> steps_;
  std::size_t next_step_ = 0;
  ULONGLONG step_since_ms_ = 0;
};

}  // namespace tidemark
