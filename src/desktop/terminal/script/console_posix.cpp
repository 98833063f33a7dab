#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>

#include "desktop/terminal/script/line_buffer.h"

namespace tidemark {
namespace {

std::atomic<bool> close_requested = false;
// Signals wake a waiting poll by a byte in this pipe.
std::array<int, 2> wake_pipe = {-1, -1};

void OnSignal(int /*signal*/) {
  const int saved_error = errno;
  close_requested = true;
  // A full pipe wakes just as well.
  [[maybe_unused]] const ssize_t written = write(wake_pipe[1], "!", 1);
  errno = saved_error;
}

void WriteAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(file, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;  // who read us is gone; nobody is left to tell
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

class PosixConsole : public Console {
 public:
  PosixConsole() {
    if (pipe2(wake_pipe.data(), O_NONBLOCK | O_CLOEXEC) != 0) return;
    struct sigaction action = {};
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
    // A reader that goes away is noticed at the write.
    action.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &action, nullptr);
  }

  ConsoleInput Wait(int timeout_ms) override {
    while (true) {
      if (CloseRequested()) {
        close_requested = false;
        return {.kind = ConsoleInput::Kind::kClose, .line = {}};
      }
      if (auto input = lines_.Take()) return std::move(*input);
      if (!ReadMore(timeout_ms)) return {};
    }
  }

  bool CloseRequested() const override { return close_requested.load(std::memory_order_relaxed); }
  void Write(std::string_view text) override { WriteAll(STDOUT_FILENO, text); }
  void WriteError(std::string_view text) override { WriteAll(STDERR_FILENO, text); }

 private:
  // False when the time ran out.
  bool ReadMore(int timeout_ms) {
    std::array<pollfd, 2> files = {{{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0},
                                    {.fd = wake_pipe[0], .events = POLLIN, .revents = 0}}};
    const int ready = poll(files.data(), files.size(), timeout_ms);
    if (ready == 0) return false;
    if (ready < 0) return errno == EINTR;
    std::array<char, 4096> buffer;
    if (files[1].revents != 0) {
      while (read(wake_pipe[0], buffer.data(), buffer.size()) > 0) {
      }
    } else {
      const ssize_t count = read(STDIN_FILENO, buffer.data(), buffer.size());
      if (count > 0) lines_.Append({buffer.data(), static_cast<std::size_t>(count)});
      if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN)) lines_.End();
    }
    return true;
  }

  LineBuffer lines_;
};

}  // namespace

std::unique_ptr<Console> OpenConsole() { return std::make_unique<PosixConsole>(); }

}  // namespace tidemark
