// The front end for a terminal. A person at a terminal sees the page that is up, live while a scan
// or a repair runs, and types commands under it. A script's commands come from standard input, one
// at a time while the program is idle, and the page is printed when a command has changed it. A
// question takes the next line of either.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "desktop/terminal/commands.h"
#include "desktop/terminal/console.h"
#include "desktop/terminal/desk.h"
#include "desktop/terminal/styled_line.h"
#include "toolkit/due_timers.h"
#include "toolkit/front_end.h"

namespace tidemark {

class TerminalFrontEnd : public FrontEnd {
 public:
  explicit TerminalFrontEnd(Console& console);

  // Runs the program's entry, then takes commands until the main window has been closed. The end of
  // input and a request of the system to go (Ctrl+C) close it as a person would. Returns the
  // process's exit status: 1 when a command of a script was refused, else 0.
  int Run(Form& main_window, const std::function<void()>& program_entry);

  // Called for every item of a scan: looks at clock and console only now and then.
  void DoEvents() override {
    if (--yields_to_pulse_ <= 0) Pulse();
  }
  void Show(Form& form) override;
  // Keeps no pointer to the form: its Unload handler may destroy it.
  void Unload(Form& form) override;
  // Nothing lies in front of the main window but the small ones, which stay there.
  void SetForeground(Form& form) override;
  HWND WindowHandle(const Form& form) override;
  void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) override;
  bool AskYesNo(std::string_view text, std::string_view title) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  std::string BrowseForFolder(std::string_view title) override;
  void PopupMenu(Menu& menu) override;
  bool NotifyIcon(TrayMessage message, const TrayIcon& icon) override;
  void Beep() override;
  void SetMousePointer(MousePointer pointer) override;
  [[noreturn]] void End() override;

 private:
  using Clock = std::chrono::steady_clock;

  void Pulse();
  void PulseAtTerminal();
  void AdaptPulse();
  // Whether the running command has opened a dialog that has to be answered before it goes on.
  bool AwaitsAnswer() const;

  // Raises the tick that is due; its handler runs as a command does.
  void TickTimer();
  // The next input; the page is kept up to date and timers tick until it comes.
  ConsoleInput WaitForInput();
  // As a procedure that sleeps and yields.
  void LetTimePass(std::uint32_t milliseconds);

  // The line that answers the box; nothing at the end of the input.
  std::optional<std::string> Ask(std::string_view title, Lines content, std::string_view hint);

  void Handle(const ConsoleInput& input);
  void TakeLine(std::string_view line);
  void Follow(const CommandResult& result);
  void Refused(std::string reason);
  void CloseDialog();
  void CloseMain();
  void TakeOff(const Form& form);

  void Draw();
  void DrawScreen();
  void PrintPage();
  void PrintBox();
  void ForgetScreen();
  void ShowOutput(std::string_view output);
  Line StatusLine() const;

  Console& console_;
  bool interactive_;
  Desk desk_;
  bool closing_ = false;
  bool refused_ = false;
  bool busy_pointer_ = false;

  long last_command_ = 0;
  long running_command_ = 0;  // 0: the program's entry

  DueTimers timers_;
  ULONGLONG next_timer_look_ = 0;

  int pulse_period_ = 1;  // yields from one pulse to the next
  int yields_to_pulse_ = 1;
  Clock::time_point last_pulse_;
  Clock::time_point last_look_;
  Clock::time_point last_draw_;

  // A terminal's screen.
  std::string notice_;         // why the last command was refused
  bool prompt_is_up_ = false;  // the cursor stands behind the prompt, maybe with something typed
  bool reading_ = false;       // a longer output is up instead of the page
  bool working_ = false;       // drawn from within a yield
  std::string last_screen_;    // as it was drawn last; also a script's last page
};

}  // namespace tidemark
