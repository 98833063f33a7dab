#include <array>
#include <atomic>
#include <utility>
#include <vector>

#include "desktop/terminal/console_parts.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

std::atomic<bool> close_requested = false;

BOOL WINAPI OnControl(DWORD) {
  close_requested = true;
  return TRUE;
}

void WriteAll(DWORD stream, std::string_view text) {
  while (!text.empty()) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(text.size());
    if (WriteFile(GetStdHandle(stream), text.data(), size, &written, nullptr) == 0) return;
    text.remove_prefix(written);
  }
}

class WindowsConsole : public Console {
 public:
  WindowsConsole()
      : input_(GetStdHandle(STD_INPUT_HANDLE)), output_(GetStdHandle(STD_OUTPUT_HANDLE)) {
    DWORD mode = 0;
    console_input_ = GetConsoleMode(input_, &mode) != 0;
    interactive_ = console_input_ && GetConsoleMode(output_, &mode) != 0 &&
                   SetConsoleMode(output_, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
    color_ = interactive_ && ColorIsWanted();
    SetConsoleOutputCP(CP_UTF8);
    SetConsoleCP(CP_UTF8);
    SetConsoleCtrlHandler(OnControl, TRUE);
  }

  bool IsInteractive() const override { return interactive_; }
  bool HasColor() const override { return color_; }

  ConsoleSize Size() const override {
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (!interactive_ || GetConsoleScreenBufferInfo(output_, &info) == 0) return {};
    return {.width = info.srWindow.Right - info.srWindow.Left + 1,
            .height = info.srWindow.Bottom - info.srWindow.Top + 1};
  }

  ConsoleInput Wait(int timeout_ms) override {
    while (true) {
      if (close_requested.exchange(false)) return {.kind = ConsoleInput::Kind::kClose, .line = {}};
      if (auto input = lines_.Take()) return std::move(*input);
      if (timeout_ms >= 0 && !LineIsTyped()) {
        if (timeout_ms == 0) return {};
        Sleep(static_cast<DWORD>(timeout_ms));
        timeout_ms = 0;
        continue;
      }
      ReadMore();
    }
  }

  bool CloseRequested() const override { return close_requested.load(std::memory_order_relaxed); }
  void Write(std::string_view text) override { WriteAll(STD_OUTPUT_HANDLE, text); }
  void WriteError(std::string_view text) override { WriteAll(STD_ERROR_HANDLE, text); }

 private:
  // A console is readable for every key; only a waiting Enter means that a read would not block.
  bool LineIsTyped() const {
    DWORD count = 0;
    if (!console_input_ || GetNumberOfConsoleInputEvents(input_, &count) == 0 || count == 0) {
      return false;
    }
    std::vector<INPUT_RECORD> events(count);
    if (PeekConsoleInputA(input_, events.data(), count, &count) == 0) return false;
    events.resize(count);
    for (const INPUT_RECORD& event : events) {
      if (event.EventType == KEY_EVENT && event.Event.KeyEvent.bKeyDown != 0 &&
          event.Event.KeyEvent.wVirtualKeyCode == VK_RETURN) {
        return true;
      }
    }
    return false;
  }

  void ReadMore() {
    std::array<char, 4096> buffer;
    DWORD count = 0;
    SetLastError(ERROR_SUCCESS);
    const BOOL done = ReadFile(input_, buffer.data(), buffer.size(), &count, nullptr);
    lines_.Append({buffer.data(), count});
    // Ctrl+C ends the read with nothing; its handler runs on a thread of its own and may come
    // later.
    const bool interrupted = console_input_ && GetLastError() == ERROR_OPERATION_ABORTED;
    if (interrupted) Sleep(10);
    const bool ended = done == 0 || (count == 0 && !CloseRequested());
    if (ended && !interrupted) lines_.End();
  }

  HANDLE input_;
  HANDLE output_;
  bool console_input_ = false;
  bool interactive_ = false;
  bool color_ = false;
  LineBuffer lines_;
};

}  // namespace

std::unique_ptr<Console> OpenConsole() { return std::make_unique<WindowsConsole>(); }

}  // namespace tidemark
