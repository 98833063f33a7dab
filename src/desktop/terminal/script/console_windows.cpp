#include <array>
#include <atomic>
#include <utility>

#include "desktop/terminal/script/line_buffer.h"
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
  WindowsConsole() {
    SetConsoleOutputCP(CP_UTF8);
    SetConsoleCP(CP_UTF8);
    SetConsoleCtrlHandler(OnControl, TRUE);
  }

  ConsoleInput Wait(int /*timeout_ms*/) override {
    while (true) {
      if (close_requested.exchange(false)) return {.kind = ConsoleInput::Kind::kClose, .line = {}};
      if (auto input = lines_.Take()) return std::move(*input);
      ReadMore();
    }
  }

  bool CloseRequested() const override { return close_requested.load(std::memory_order_relaxed); }
  void Write(std::string_view text) override { WriteAll(STD_OUTPUT_HANDLE, text); }
  void WriteError(std::string_view text) override { WriteAll(STD_ERROR_HANDLE, text); }

 private:
  void ReadMore() {
    std::array<char, 4096> buffer;
    DWORD count = 0;
    SetLastError(ERROR_SUCCESS);
    const BOOL done =
        ReadFile(GetStdHandle(STD_INPUT_HANDLE), buffer.data(), buffer.size(), &count, nullptr);
    lines_.Append({buffer.data(), count});
    // In a console Ctrl+C ends the read with nothing; its handler runs on a thread of its own and
    // may come later.
    const bool interrupted = GetLastError() == ERROR_OPERATION_ABORTED;
    if (interrupted) Sleep(10);
    const bool ended = done == 0 || (count == 0 && !CloseRequested());
    if (ended && !interrupted) lines_.End();
  }

  LineBuffer lines_;
};

}  // namespace

std::unique_ptr<Console> OpenConsole() { return std::make_unique<WindowsConsole>(); }

}  // namespace tidemark
