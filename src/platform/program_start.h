// Starting another program, as the shell's program start does: the program is started, not awaited.
#pragma once

#include <memory>
#include <string>

namespace tidemark {

enum class WindowStyle { kNormalFocus = 1, kMinimizedFocus = 2 };

// A program that was started; it runs on when this goes.
class StartedProgram {
 public:
  virtual ~StartedProgram() = default;
  virtual bool HasEnded() const = 0;
};

// Starts the command line and returns as soon as the started program is up: ready for input, or
// already ended, or 2 seconds have passed. False when it could not be started. On a hosted PC only
// the registry editor can be started.
bool StartProgram(const std::string& command_line, WindowStyle style);
// The same; null when it could not be started.
std::unique_ptr<StartedProgram> StartAndFollow(const std::string& command_line, WindowStyle style);

// Types the keystrokes into the window that has the focus, in the platform's SendKeys syntax
// ("{RIGHT}", "{{}"), at once and with no waiting. On a hosted PC there is no such window, and
// nothing happens.
void SendKeystrokes(const std::string& keys);

}  // namespace tidemark
