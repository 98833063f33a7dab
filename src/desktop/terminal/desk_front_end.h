// What the front ends of the terminal have in common: windows come and go, timers tick, commands
// run.
#pragma once

#include <chrono>
#include <functional>

#include "desktop/terminal/commands.h"
#include "desktop/terminal/desk.h"
#include "toolkit/due_timers.h"
#include "toolkit/front_end.h"

namespace tidemark {

class DeskFrontEnd : public FrontEnd {
 public:
  // Runs the program's entry, then acts on inputs until the main window has been closed. The end of
  // input and a request of the system to go (Ctrl+C) close it as a person would. Returns the
  // process's exit status: 1 when a command of a script was refused, else 0.
  int Run(Form& main_window, const std::function<void()>& program_entry);

  // Called for every item of a scan: looks at clock and input only now and then.
  void DoEvents() override {
    if (--yields_to_pulse_ <= 0) Pulse();
  }
  void WaitForEvents() override { AwaitInput(); }
  void Show(Form& form) override;
  // Keeps no pointer to the form: its Unload handler may destroy it.
  void Unload(Form& form) override;
  // Nothing lies in front of the main window but the small ones, which stay there.
  void SetForeground(Form& form) override;
  HWND WindowHandle(const Form& form) override;
  // A path of the PC that is shown, on the desktop unless it is typed over.
  std::string AskSaveFile(std::string_view title, std::string_view name) override;
  void CopyText(std::string_view text) override { ShowOutput(std::string(text)); }
  bool NotifyIcon(TrayMessage message, const TrayIcon& icon) override;
  void SetMousePointer(MousePointer /*pointer*/) override {}
  [[noreturn]] void End() override;

 protected:
  using Clock = std::chrono::steady_clock;

  // Nothing else is to be done: waits for an input and acts on it.
  virtual void AwaitInput() = 0;
  // In the middle of the work, now and then: looks for input.
  virtual void LookForInput() = 0;
  // What follows a command, beside what is done here.
  virtual void ShowOutput(const std::string& output) = 0;
  virtual void RepeatPage() {}

  // Raises the tick that is due.
  void TickTimer();
  // Milliseconds; -1: no timer runs.
  int TimeToNextTick();
  // Throws CommandRefused.
  void RunLine(std::string_view line, std::string_view list_separator);
  void CloseDialog();
  void CloseMain();
  // The form goes, and may be destroyed.
  virtual void TakeOff(const Form& form);
  // The next yield looks.
  void LookSoon() { yields_to_pulse_ = pulse_period_ = 1; }

  Desk desk_;
  bool refused_ = false;
  Clock::time_point last_pulse_;

 private:
  void Pulse();
  void AdaptPulse();
  // As a procedure that sleeps and yields.
  void LetTimePass(std::uint32_t milliseconds);
  std::vector<Desk::ShownForm>::iterator Find(const Form& form);

  DueTimers timers_;
  ULONGLONG next_timer_look_ = 0;
  bool closing_ = false;
  int pulse_period_ = 1;  // yields from one pulse to the next
  int yields_to_pulse_ = 1;
};

}  // namespace tidemark
