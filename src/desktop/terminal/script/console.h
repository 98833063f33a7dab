// The pair of pipes at which the program was started. The front end for scripts reads and writes
// through it alone; console_posix.cpp and console_windows.cpp bring the real one, tests their own.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tidemark {

inline constexpr int kPageWidth = 100;  // of what is printed, in columns

struct ConsoleInput {
  enum class Kind {
    kNothing,  // the time ran out
    kLine,
    kEnd,    // nothing more will come
    kClose,  // Ctrl+C, or the system asks the program to go
  };
  Kind kind = Kind::kNothing;
  std::string line;  // without its end
};

class Console {
 public:
  Console() = default;
  virtual ~Console() = default;
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  // Waits for the next input; 0 does not wait, a negative time waits for ever.
  virtual ConsoleInput Wait(int timeout_ms) = 0;
  // Whether the next Wait would give kClose. Costs a memory access.
  virtual bool CloseRequested() const = 0;

  virtual void Write(std::string_view text) = 0;
  // To the error stream.
  virtual void WriteError(std::string_view text) = 0;
};

// The console of this process. Make one only: it takes over the process's signals.
std::unique_ptr<Console> OpenConsole();

}  // namespace tidemark
