// A fresh PC for one test. Natively it is a hosted PC in a temporary folder, whose clock stands
// until it is told to move; on Windows the three roots of the registry are redirected to scratch
// keys, and there is a temporary folder. All is gone when the object goes. Everything is set up
// through platform calls, so a test reads the same on both grounds.
#pragma once

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/winapi.h"

namespace tidemark {

struct TestValue {
  DWORD type = 0;
  std::string bytes;  // as stored, with the NUL of a text

  bool operator==(const TestValue&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const TestValue& value) {
    return out << "type " << value.type << " \"" << value.bytes << '"';
  }
};

class TestPc {
 public:
  // kLive: on Windows the roots are the real ones, for tests with the registry editor, which is
  // another process. Such a test works below LiveKey(), which is deleted at the end.
  enum class Registry { kRedirected, kLive };

  explicit TestPc(Registry registry = Registry::kRedirected);
  ~TestPc();
  TestPc(const TestPc&) = delete;
  TestPc& operator=(const TestPc&) = delete;

  // A folder of this test alone, "C:\tm-1234-1". It exists and is empty but for Program.
  const std::string& folder() const { return folder_; }
  // Where the program would stand: folder()\Program, with a folder "backup" in it.
  std::string program_folder() const { return folder_ + "\\Program"; }
  // Below HKEY_CURRENT_USER: "Software\TidemarkTest-1234-1".
  const std::string& LiveKey() const { return live_key_; }

  // Files. Parent folders are made.
  void MakeFolder(const std::string& path);
  void MakeFile(const std::string& path, std::string_view contents = "x");
  // One whose path may be longer than the platform's calls take.
  void MakeDeepFile(const std::string& path);
  bool DeepFileExists(const std::string& path);
  std::string ReadFile(const std::string& path);  // empty when it is not there
  bool FileExists(const std::string& path);
  // The names of the files in a folder below folder(), sorted.
  std::vector<std::string> FileNames(const std::string& path);

  // The registry. Keys are made with all above them. A text is stored with its NUL.
  void MakeKey(HKEY root, const std::string& key);
  void SetText(HKEY root, const std::string& key, const std::string& name, const std::string& text,
               DWORD type = REG_SZ);
  void SetDword(HKEY root, const std::string& key, const std::string& name, DWORD value);
  void SetBinary(HKEY root, const std::string& key, const std::string& name, std::string_view bytes,
                 DWORD type = REG_BINARY);
  bool KeyExists(HKEY root, const std::string& key);
  std::optional<TestValue> Value(HKEY root, const std::string& key, const std::string& name);
  // The text of a value up to its NUL; empty when there is none.
  std::string Text(HKEY root, const std::string& key, const std::string& name);

  // What only a hosted PC can do; on Windows they do nothing, and CanFault() is false: a test that
  // needs them skips itself.
  static bool CanFault();
  void SetTime(const SYSTEMTIME& time);
  void SetVariable(const std::string& name, const std::string& value);
  void DenyKey(const std::string& full_name, REGSAM rights = KEY_ALL_ACCESS);
  void DenyFile(const std::string& path);
  void AllowAll();
  void FillDisk(std::optional<unsigned> bytes_left = 0);
  // Adds a drive, or changes one: "network label=Papers", as pc.ini has it.
  void SetDrive(char letter, const std::string& description);
  // The paths that files in the recycle bin had, the first one thrown away first.
  std::vector<std::string> Recycled();
  // Puts all of them back to where they were.
  void RestoreRecycled();
  // What the registry editor takes for a command when it is up, and until it is up.
  void SlowEditor(unsigned milliseconds, unsigned start_up_ms = 1);
  // The user's locale, in the platform's pictures: "M/d/yyyy" and "h:mm:ss tt".
  void SetLocale(const std::string& short_date, const std::string& long_time);
  // What the Task Scheduler answers; below 0 it does nothing.
  void RefuseLogonTasks(HRESULT status);
  // "file|arguments" of this user's logon task; empty when there is none.
  std::string RegisteredLogonTask();
  // What the shell was asked to open, "verb|file|parameters|folder|show mode".
  std::vector<std::string> OpenedByShell();

 private:
  struct Ground;  // what each ground needs to undo itself

  std::unique_ptr<Ground> ground_;
  std::string folder_;
  std::string live_key_;
};

}  // namespace tidemark
