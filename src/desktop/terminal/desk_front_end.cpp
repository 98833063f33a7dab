#include "desktop/terminal/desk_front_end.h"

#include <algorithm>
#include <array>
#include <string>

namespace tidemark {
namespace {

using std::chrono::milliseconds;

// More than a clock's price is saved by fewer looks; then one look costs a yield next to nothing.
constexpr int kLongestPulsePeriod = 64;
constexpr milliseconds kPulseTooShort{1};
constexpr milliseconds kPulseTooLong{20};
constexpr ULONGLONG kTimerLookPause_ms = 10;
constexpr ULONGLONG kSleepStep_ms = 100;

}  // namespace

int DeskFrontEnd::Run(Form& main_window, const std::function<void()>& program_entry) {
  desk_.main_window = &main_window;
  closing_ = refused_ = false;
  try {
    program_entry();
    while (true) AwaitInput();
  } catch (const ProcessEnded&) {
    // The handlers have done what there was to do.
  }
  desk_ = {};
  timers_ = {};
  return refused_ ? 1 : 0;
}

void DeskFrontEnd::Pulse() {
  AdaptPulse();
  if (closing_) return;
  if (GetTickCount64() >= next_timer_look_) TickTimer();
  LookForInput();
}

// Yields come a million times a second in a scan, and one in 300 ms when the registry editor runs.
void DeskFrontEnd::AdaptPulse() {
  const Clock::time_point now = Clock::now();
  const Clock::duration pause = now - last_pulse_;
  last_pulse_ = now;
  if (pause < kPulseTooShort) pulse_period_ = std::min(pulse_period_ * 2, kLongestPulsePeriod);
  if (pause > kPulseTooLong) pulse_period_ = 1;
  yields_to_pulse_ = pulse_period_;
}

void DeskFrontEnd::TickTimer() {
  const ULONGLONG now = GetTickCount64();
  next_timer_look_ = now + kTimerLookPause_ms;
  if (Timer* timer = timers_.TakeDue(now)) timer->Tick();
}

int DeskFrontEnd::TimeToNextTick() { return timers_.Wait(GetTickCount64()); }

void DeskFrontEnd::LetTimePass(std::uint32_t milliseconds) {
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

void DeskFrontEnd::RunLine(std::string_view line, std::string_view list_separator) {
  LookSoon();
  const CommandResult result = RunCommand(line, desk_, list_separator);
  switch (result.next) {
    case CommandResult::Next::kPage:
      break;
    case CommandResult::Next::kRepeatPage:
      RepeatPage();
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

void DeskFrontEnd::CloseDialog() {
  if (Form* dialog = desk_.Dialog()) Unload(*dialog);
}

void DeskFrontEnd::CloseMain() {
  if (closing_) End();
  closing_ = true;
  // Before it is shown it holds nothing that its end could store.
  if (desk_.MainIsUp()) Unload(*desk_.main_window);
  End();
}

std::vector<Desk::ShownForm>::iterator DeskFrontEnd::Find(const Form& form) {
  return std::find_if(desk_.forms.begin(), desk_.forms.end(),
                      [&form](const Desk::ShownForm& entry) { return entry.form == &form; });
}

void DeskFrontEnd::Show(Form& form) {
  const auto shown = Find(form);
  if (shown == desk_.forms.end()) {
    desk_.forms.push_back({.form = &form, .loaded = false});
    timers_.Add(form);
    form.Load();
    for (Desk::ShownForm& entry : desk_.forms) {
      if (entry.form == &form) entry.loaded = true;
    }
  } else {
    std::rotate(shown, shown + 1, desk_.forms.end());
  }
  form.SetVisible(true);
  yields_to_pulse_ = 1;
}

void DeskFrontEnd::Unload(Form& form) {
  TakeOff(form);
  form.SetVisible(false);
  form.Unload();
}

void DeskFrontEnd::TakeOff(const Form& form) {
  timers_.Remove(form);
  std::erase_if(desk_.forms, [&form](const Desk::ShownForm& entry) { return entry.form == &form; });
}

void DeskFrontEnd::SetForeground(Form& form) {
  const auto shown = Find(form);
  if (&form == desk_.main_window || shown == desk_.forms.end()) return;
  std::rotate(shown, shown + 1, desk_.forms.end());
}

HWND DeskFrontEnd::WindowHandle(const Form& /*form*/) { return nullptr; }

std::string DeskFrontEnd::AskSaveFile(std::string_view title, std::string_view name) {
  std::array<char, MAX_PATH> desktop{};
  SHGetFolderPathA(nullptr, CSIDL_DESKTOP, nullptr, 0, desktop.data());
  const std::string proposed = std::string(desktop.data()).append("\\").append(name);
  std::string path = InputBox("Write to the file:", title, proposed);
  const bool is_there = GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
  if (is_there && !AskYesNo(path + " is there already. Replace it?", title)) path.clear();
  return path;
}

bool DeskFrontEnd::NotifyIcon(TrayMessage message, const TrayIcon& icon) {
  const auto same = [&icon](const TrayIcon& other) {
    return other.hWnd == icon.hWnd && other.uID == icon.uID;
  };
  if (message == TrayMessage::kDelete) return std::erase_if(desk_.tray, same) > 0;
  if (std::any_of(desk_.tray.begin(), desk_.tray.end(), same)) return false;
  desk_.tray.push_back(icon);
  return true;
}

void DeskFrontEnd::End() { throw ProcessEnded{}; }

}  // namespace tidemark
