// The registry editor of the hosted PC: "regedit /e file [key]" and "regedit /s file". It runs
// beside the program, as a process of its own would, on the PC's clock: what it has done by a
// moment is done when a platform call is made after that moment.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::hosted {

class RegistryEditor {
 public:
  // Takes a command line; false when it does not start the registry editor ("regedit" or
  // "regedit.exe" in any case, with or without a folder). Without /e or /s the editor shows its
  // window, where nobody sits, and does nothing.
  bool Start(std::string_view command_line);
  // Whether the PC has a registry editor at all.
  void SetPresent(bool present) { present_ = present; }

  // The number of the command line that was taken last, and whether it is still at work.
  std::uint64_t LastStarted() const { return last_started_; }
  bool IsRunning(std::uint64_t number) const;

  // Does what is due by now. The platform calls make this; a cheap test when nothing is running. An
  // export of a missing key leaves its file alone, and so does one that can't write; any other
  // makes its file empty when it has started up, and fills it when it ends with what the registry
  // holds then: nothing, if the key is gone by then. An import reads its file when it has started
  // up, and is lost if the file is gone by then; the registry has it when it ends.
  void CatchUp() {
    if (!commands_.empty() && !busy_) RunDue();
  }
  // Lets everything that was started come to its end, without waiting.
  void Finish();
  // Whether the file is being written by an editor at this moment: it can be read, but not deleted.
  bool IsWriting(std::string_view path) const;

  // How long a command takes until it is up, and has its file open.
  void SetStartUp(std::uint32_t milliseconds) { start_up_ms_ = milliseconds; }
  std::uint32_t StartUp() const { return start_up_ms_; }
  // How long it takes from there to its end, beside what its size adds.
  void SetDuration(std::uint32_t milliseconds) { duration_ms_ = milliseconds; }
  // Whether the editor exports in the older 8-bit form, as on old PCs.
  void SetEightBit(bool eight_bit) { eight_bit_ = eight_bit; }

 private:
  struct Command {
    bool exports;
    std::string file;
    std::string key;  // of an export; empty for all
    std::uint64_t due_us;
    std::string text = {};  // of an import, as it was read
    bool file_open = false;
    std::uint64_t number = 0;  // of the command line
  };

  // False when there is nothing to do.
  bool Begin(Command& command);
  void End(const Command& command);
  void RunDue();
  void RunUntil(std::uint64_t now_us);

  std::vector<Command> commands_;
  std::uint32_t start_up_ms_ = 1;
  std::uint32_t duration_ms_ = 2;
  bool eight_bit_ = false;
  bool present_ = true;
  std::uint64_t last_started_ = 0;
  bool busy_ = false;  // its own platform calls don't catch up
};

// The arguments of a command line as the platform's programs see them: divided by blanks, held
// together by double quotes; a backslash before a double quote makes it a plain one.
std::vector<std::string> SplitCommandLine(std::string_view command_line);

}  // namespace tidemark::hosted
