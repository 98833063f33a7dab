#include "platform/program_start.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/unique_handle.h"
#include "platform/winapi.h"
#include "platform/windows/wide_text.h"

namespace tidemark {
namespace {

constexpr DWORD kLongestWaitMs = 2000;

struct ProcessHandlePolicy {
  using Handle = HANDLE;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { CloseHandle(handle); }
};
using UniqueProcessHandle = UniqueHandle<ProcessHandlePolicy>;

struct KeyName {
  std::wstring_view name;
  WORD key;
};

constexpr KeyName kKeyNames[] = {{L"RIGHT", VK_RIGHT},  {L"LEFT", VK_LEFT}, {L"UP", VK_UP},
                                 {L"DOWN", VK_DOWN},    {L"HOME", VK_HOME}, {L"END", VK_END},
                                 {L"ENTER", VK_RETURN}, {L"TAB", VK_TAB},   {L"ESC", VK_ESCAPE},
                                 {L"DEL", VK_DELETE}};

void Press(WORD key, WORD character, DWORD flags, std::vector<INPUT>& inputs) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = character;
  input.ki.dwFlags = flags;
  inputs.push_back(input);
  input.ki.dwFlags |= KEYEVENTF_KEYUP;
  inputs.push_back(input);
}

void TypeCharacters(std::wstring_view characters, std::vector<INPUT>& inputs) {
  for (const wchar_t character : characters) {
    Press(0, static_cast<WORD>(character), KEYEVENTF_UNICODE, inputs);
  }
}

// What stands between braces: the name of a key, or characters that are meant as they are.
void PressNamed(std::wstring_view name, std::vector<INPUT>& inputs) {
  const auto* found = std::find_if(std::begin(kKeyNames), std::end(kKeyNames),
                                   [name](const KeyName& key) { return key.name == name; });
  if (found == std::end(kKeyNames)) {
    TypeCharacters(name, inputs);
  } else {
    Press(found->key, 0, KEYEVENTF_EXTENDEDKEY, inputs);
  }
}

class Process : public StartedProgram {
 public:
  explicit Process(UniqueProcessHandle process) : process_(std::move(process)) {}
  bool HasEnded() const override { return WaitForSingleObject(process_.Get(), 0) != WAIT_TIMEOUT; }

 private:
  UniqueProcessHandle process_;
};

}  // namespace

bool StartProgram(const std::string& command_line, WindowStyle style) {
  return StartAndFollow(command_line, style) != nullptr;
}

std::unique_ptr<StartedProgram> StartAndFollow(const std::string& command_line, WindowStyle style) {
  STARTUPINFOA start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = style == WindowStyle::kMinimizedFocus ? SW_SHOWMINIMIZED : SW_SHOWNORMAL;
  PROCESS_INFORMATION started{};
  std::string line = command_line;  // the platform may write into it
  if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                     &started) == FALSE) {
    return nullptr;
  }
  UniqueProcessHandle process(started.hProcess);
  const UniqueProcessHandle thread(started.hThread);
  // Comes back early also when the program ends, and at once for one without windows: it is up
  // then.
  static_cast<void>(WaitForInputIdle(process.Get(), kLongestWaitMs));
  return std::make_unique<Process>(std::move(process));
}

void SendKeystrokes(const std::string& keys) {
  const std::wstring wide = Wide(keys);
  std::vector<INPUT> inputs;
  std::wstring_view rest = wide;
  while (!rest.empty()) {
    // The closing brace may itself be what is named: "{}}".
    const std::size_t end = rest.front() == L'{' ? rest.find(L'}', 2) : std::wstring_view::npos;
    if (end == std::wstring_view::npos) {
      TypeCharacters(rest.substr(0, 1), inputs);
      rest.remove_prefix(1);
    } else {
      PressNamed(rest.substr(1, end - 1), inputs);
      rest.remove_prefix(end + 1);
    }
  }
  if (!inputs.empty()) SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace tidemark
