#include "desktop/terminal/terminal_front_end.h"

#include <algorithm>
#include <utility>

#include "controls/xpcmdbutton.h"
#include "desktop/terminal/during.h"

namespace tidemark {
namespace {

using std::chrono::milliseconds;

// More than a clock's price is saved by fewer looks; then one look costs a yield next to nothing.
constexpr int kLongestPulsePeriod = 64;
constexpr milliseconds kPulseTooShort{1};
constexpr milliseconds kPulseTooLong{20};
constexpr milliseconds kLookPause{10};
constexpr milliseconds kRedrawPause{80};
constexpr int kAnswerWait_ms = 50;
constexpr ULONGLONG kTimerLookPause_ms = 10;
constexpr ULONGLONG kSleepStep_ms = 100;

// One that a person can press.
bool HasButton(const Control& control) {
  if (!control.Visible()) return false;
  const bool button = dynamic_cast<const CommandButton*>(&control) != nullptr ||
                      dynamic_cast<const xpcmdbutton*>(&control) != nullptr;
  if (button && control.Enabled()) return true;
  return std::any_of(control.Controls().begin(), control.Controls().end(),
                     [](const Control* inner) { return HasButton(*inner); });
}

}  // namespace

TerminalFrontEnd::TerminalFrontEnd(Console& console)
    : console_(console), interactive_(console.IsInteractive()) {}

int TerminalFrontEnd::Run(Form& main_window, const std::function<void()>& program_entry) {
  desk_.main_window = &main_window;
  closing_ = refused_ = false;
  try {
    program_entry();
    while (true) Handle(WaitForInput());
  } catch (const ProcessEnded&) {
    if (prompt_is_up_) console_.Write("\r\n");
  }
  desk_ = {};
  timers_ = {};
  return refused_ ? 1 : 0;
}

void TerminalFrontEnd::Pulse() {
  AdaptPulse();
  if (closing_) return;
  if (GetTickCount64() >= next_timer_look_) TickTimer();
  if (interactive_) {
    PulseAtTerminal();
  } else if (AwaitsAnswer()) {
    Handle(WaitForInput());
  } else if (console_.CloseRequested()) {
    CloseMain();
  }
}

void TerminalFrontEnd::PulseAtTerminal() {
  const bool awaits_answer = AwaitsAnswer();
  if (!awaits_answer && last_pulse_ - last_look_ < kLookPause) return;
  last_look_ = last_pulse_;
  if (awaits_answer || last_pulse_ - last_draw_ >= kRedrawPause) {
    const During working(working_, !awaits_answer);
    Draw();
  }
  const ConsoleInput input = console_.Wait(awaits_answer ? kAnswerWait_ms : 0);
  if (input.kind == ConsoleInput::Kind::kNothing) return;
  Handle(input);
  last_draw_ = {};
}

// Yields come a million times a second in a scan, and one in 300 ms when the registry editor runs.
void TerminalFrontEnd::AdaptPulse() {
  const Clock::time_point now = Clock::now();
  const Clock::duration pause = now - last_pulse_;
  last_pulse_ = now;
  if (pause < kPulseTooShort) pulse_period_ = std::min(pulse_period_ * 2, kLongestPulsePeriod);
  if (pause > kPulseTooLong) pulse_period_ = 1;
  yields_to_pulse_ = pulse_period_;
}

void TerminalFrontEnd::TickTimer() {
  const ULONGLONG now = GetTickCount64();
  next_timer_look_ = now + kTimerLookPause_ms;
  if (Timer* timer = timers_.TakeDue(now)) {
    const During running(running_command_, ++last_command_);
    timer->Tick();
  }
}

ConsoleInput TerminalFrontEnd::WaitForInput() {
  while (true) {
    TickTimer();
    Draw();
    ConsoleInput input = console_.Wait(timers_.Wait(GetTickCount64()));
    if (input.kind != ConsoleInput::Kind::kNothing) return input;
  }
}

void TerminalFrontEnd::LetTimePass(std::uint32_t milliseconds) {
  const ULONGLONG end = GetTickCount64() + milliseconds;
  for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
    const int next_tick = timers_.Wait(now);
    ULONGLONG step = std::min(end - now, kSleepStep_ms);
    if (next_tick >= 0) step = std::min(step, static_cast<ULONGLONG>(next_tick));
    Sleep(static_cast<DWORD>(step));
    TickTimer();
    Pulse();
  }
}

bool TerminalFrontEnd::AwaitsAnswer() const {
  const Form* dialog = desk_.Dialog();
  return dialog != nullptr && desk_.forms.back().command == running_command_ && dialog->Visible() &&
         HasButton(*dialog);
}

void TerminalFrontEnd::Handle(const ConsoleInput& input) {
  switch (input.kind) {
    case ConsoleInput::Kind::kLine:
      TakeLine(input.line);
      break;
    case ConsoleInput::Kind::kEnd:
    case ConsoleInput::Kind::kClose:
      CloseMain();
      break;
    case ConsoleInput::Kind::kResized:
      ForgetScreen();
      break;
    case ConsoleInput::Kind::kNothing:
      break;
  }
}

void TerminalFrontEnd::TakeLine(std::string_view line) {
  prompt_is_up_ = false;
  reading_ = false;
  notice_.clear();
  const During running(running_command_, ++last_command_);
  yields_to_pulse_ = pulse_period_ = 1;
  try {
    Follow(RunCommand(line, desk_, interactive_ ? " │ " : "\t"));
  } catch (const CommandRefused& refusal) {
    Refused(refusal.what());
  }
}

void TerminalFrontEnd::Refused(std::string reason) {
  if (!interactive_) {
    refused_ = true;
    console_.WriteError("tidemark: " + reason + "\n");
  }
  notice_ = std::move(reason);
}

void TerminalFrontEnd::Follow(const CommandResult& result) {
  switch (result.next) {
    case CommandResult::Next::kPage:
      break;
    case CommandResult::Next::kRepeatPage:
      last_screen_.clear();
      break;
    case CommandResult::Next::kOutput:
      ShowOutput(result.output);
      break;
    case CommandResult::Next::kCloseDialog:
      CloseDialog();
      break;
    case CommandResult::Next::kCloseMain:
      CloseMain();
      break;
    case CommandResult::Next::kWait:
      LetTimePass(result.wait_ms);
      break;
  }
}

void TerminalFrontEnd::CloseDialog() {
  if (Form* dialog = desk_.Dialog()) Unload(*dialog);
}

void TerminalFrontEnd::CloseMain() {
  if (closing_) End();
  closing_ = true;
  // Before it is shown it holds nothing that its end could store.
  if (desk_.MainIsUp()) Unload(*desk_.main_window);
  End();
}

void TerminalFrontEnd::Show(Form& form) {
  const auto shown =
      std::find_if(desk_.forms.begin(), desk_.forms.end(),
                   [&form](const Desk::ShownForm& entry) { return entry.form == &form; });
  if (shown == desk_.forms.end()) {
    desk_.forms.push_back({.form = &form, .command = running_command_});
    timers_.Add(form);
    form.Load();
    for (Desk::ShownForm& entry : desk_.forms) {
      if (entry.form == &form) entry.loaded = true;
    }
  } else {
    shown->command = running_command_;
    std::rotate(shown, shown + 1, desk_.forms.end());
  }
  form.SetVisible(true);
  yields_to_pulse_ = 1;
}

void TerminalFrontEnd::Unload(Form& form) {
  TakeOff(form);
  form.SetVisible(false);
  form.Unload();
}

void TerminalFrontEnd::TakeOff(const Form& form) {
  timers_.Remove(form);
  std::erase_if(desk_.forms, [&form](const Desk::ShownForm& entry) { return entry.form == &form; });
}

void TerminalFrontEnd::SetForeground(Form& form) {
  const auto shown =
      std::find_if(desk_.forms.begin(), desk_.forms.end(),
                   [&form](const Desk::ShownForm& entry) { return entry.form == &form; });
  if (&form == desk_.main_window || shown == desk_.forms.end()) return;
  std::rotate(shown, shown + 1, desk_.forms.end());
}

HWND TerminalFrontEnd::WindowHandle(const Form& /*form*/) { return nullptr; }

bool TerminalFrontEnd::NotifyIcon(TrayMessage message, const TrayIcon& icon) {
  const auto same = [&icon](const TrayIcon& other) {
    return other.hWnd == icon.hWnd && other.uID == icon.uID;
  };
  if (message == TrayMessage::kDelete) return std::erase_if(desk_.tray, same) > 0;
  if (std::any_of(desk_.tray.begin(), desk_.tray.end(), same)) return false;
  desk_.tray.push_back(icon);
  return true;
}

// A script hears nothing.
void TerminalFrontEnd::Beep() {
  if (interactive_) console_.Write("\a");
}

void TerminalFrontEnd::SetMousePointer(MousePointer pointer) {
  busy_pointer_ = pointer == MousePointer::kHourglass;
}

void TerminalFrontEnd::End() { throw ProcessEnded{}; }

}  // namespace tidemark
