#include "desktop/terminal/terminal_front_end.h"

#include <algorithm>
#include <utility>

#include "desktop/terminal/display_text.h"

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

bool HasButton(const Control& control) {
  if (dynamic_cast<const CommandButton*>(&control) != nullptr) return true;
  return std::any_of(control.Controls().begin(), control.Controls().end(),
                     [](const Control* inner) { return HasButton(*inner); });
}

// Sets a variable for as long as the scope lasts, also when it is left by an exception.
template <class T>
class During {
 public:
  During(T& variable, T value) : variable_(variable), before_(std::exchange(variable, value)) {}
  ~During() { variable_ = before_; }
  During(const During&) = delete;
  During& operator=(const During&) = delete;

 private:
  T& variable_;
  T before_;
};

}  // namespace

TerminalFrontEnd::TerminalFrontEnd(Console& console)
    : console_(console), interactive_(console.IsInteractive()) {}

int TerminalFrontEnd::Run(Form& main_window, const std::function<void()>& program_entry) {
  desk_.main_window = &main_window;
  closing_ = refused_ = false;
  try {
    program_entry();
    while (true) {
      Draw();
      Handle(console_.Wait(-1));
    }
  } catch (const ProcessEnded&) {
    if (prompt_is_up_) console_.Write("\r\n");
  }
  desk_ = {};
  return refused_ ? 1 : 0;
}

void TerminalFrontEnd::Pulse() {
  AdaptPulse();
  if (closing_) return;
  if (interactive_) {
    PulseAtTerminal();
  } else if (AwaitsAnswer()) {
    Draw();
    Handle(console_.Wait(-1));
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
      last_screen_.clear();
      prompt_is_up_ = false;
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
    refused_ = !interactive_;
    notice_ = refusal.what();
    if (!interactive_) console_.WriteError("tidemark: " + notice_ + "\n");
  }
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
      if (Form* dialog = desk_.Dialog()) Unload(*dialog);
      break;
    case CommandResult::Next::kCloseMain:
      CloseMain();
      break;
  }
}

void TerminalFrontEnd::CloseMain() {
  if (closing_) End();
  closing_ = true;
  // Before it is shown it holds nothing that its end could store.
  if (desk_.main_window != nullptr && desk_.main_window->Visible()) Unload(*desk_.main_window);
  End();
}

void TerminalFrontEnd::Show(Form& form) {
  const auto shown =
      std::find_if(desk_.forms.begin(), desk_.forms.end(),
                   [&form](const Desk::ShownForm& entry) { return entry.form == &form; });
  const bool is_new = shown == desk_.forms.end();
  if (is_new) {
    desk_.forms.push_back({.form = &form, .command = running_command_});
    form.Load();
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
  std::erase_if(desk_.forms, [&form](const Desk::ShownForm& entry) { return entry.form == &form; });
}

void TerminalFrontEnd::ShowMessage(std::string_view text, std::string_view title) {
  const ConsoleSize size = console_.Size();
  Lines content;
  for (const std::string& line : Wrap(text, size.width - 8)) content.emplace_back("(i) " + line);
  std::string box;
  for (const Line& line : Boxed(title, content, size.width)) {
    box += line.Paint(size.width, console_.HasColor()) + "\n";
  }
  if (!interactive_) {
    console_.Write(box);
    return;
  }
  console_.Write("\x1b[H\x1b[2J\n" + box + "\n  Enter: go on ");
  last_screen_.clear();
  prompt_is_up_ = false;
  ConsoleInput::Kind kind = ConsoleInput::Kind::kNothing;
  while (kind != ConsoleInput::Kind::kLine && kind != ConsoleInput::Kind::kEnd) {
    kind = console_.Wait(-1).kind;
    if (kind == ConsoleInput::Kind::kClose) CloseMain();
  }
}

void TerminalFrontEnd::SetMousePointer(MousePointer pointer) {
  busy_pointer_ = pointer == MousePointer::kHourglass;
}

void TerminalFrontEnd::End() { throw ProcessEnded{}; }

}  // namespace tidemark
