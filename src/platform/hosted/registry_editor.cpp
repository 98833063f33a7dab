#include "platform/hosted/registry_editor.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/hosted/clock.h"
#include "platform/hosted/file_store.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_names.h"
#include "platform/hosted/registry_store.h"
#include "platform/hosted/registry_text.h"
#include "platform/winapi.h"

namespace tidemark::hosted {
namespace {

// What a key or value adds to an export.
constexpr std::uint64_t kItemUs = 2;

std::uint64_t NowUs() { return HostedPc::Current().clock().Milliseconds() * 1000; }

bool IsEditor(std::string_view program) {
  program.remove_prefix(program.find_last_of("\\/:") + 1);  // npos + 1 is 0
  return SameName(program, "regedit") || SameName(program, "regedit.exe");
}

bool SameFile(std::string_view left, std::string_view right) {
  std::string a(left);
  std::string b(right);
  std::replace(a.begin(), a.end(), '/', '\\');
  std::replace(b.begin(), b.end(), '/', '\\');
  return SameName(a, b);
}

}  // namespace

std::vector<std::string> SplitCommandLine(std::string_view command_line) {
  std::vector<std::string> arguments;
  bool inside = false;
  bool quoted = false;
  std::size_t backslashes = 0;
  for (const char character : command_line) {
    const bool blank = character == ' ' || character == '\t';
    if (blank && !quoted) {
      inside = false;
      backslashes = 0;
      continue;
    }
    if (!inside) arguments.emplace_back();
    inside = true;
    std::string& argument = arguments.back();
    if (character == '"') {
      argument.resize(argument.size() - (backslashes + 1) / 2);
      if (backslashes % 2 != 0) {
        argument += '"';
      } else {
        quoted = !quoted;
      }
    } else {
      argument += character;
    }
    backslashes = character == '\\' ? backslashes + 1 : 0;
  }
  return arguments;
}

bool RegistryEditor::Start(std::string_view command_line) {
  const std::vector<std::string> arguments = SplitCommandLine(command_line);
  if (!present_ || arguments.empty() || !IsEditor(arguments[0])) return false;
  ++last_started_;
  if (arguments.size() < 3) return true;
  const std::uint64_t due_us = NowUs() + std::uint64_t{start_up_ms_} * 1000;
  if (SameName(arguments[1], "/e")) {
    commands_.push_back({true, arguments[2], arguments.size() > 3 ? arguments[3] : "", due_us});
    commands_.back().number = last_started_;
  } else if (SameName(arguments[1], "/s")) {
    for (std::size_t i = 2; i < arguments.size(); ++i) {
      commands_.push_back({false, arguments[i], "", due_us});
      commands_.back().number = last_started_;
    }
  }
  return true;
}

void RegistryEditor::RunDue() { RunUntil(NowUs()); }

void RegistryEditor::Finish() { RunUntil(std::numeric_limits<std::uint64_t>::max()); }

// In the order of time, and of two that are due together, of their start.
void RegistryEditor::RunUntil(std::uint64_t now_us) {
  busy_ = true;
  while (!commands_.empty()) {
    const auto next =
        std::min_element(commands_.begin(), commands_.end(),
                         [](const Command& a, const Command& b) { return a.due_us < b.due_us; });
    if (next->due_us > now_us) break;
    if (!next->file_open) {
      if (!Begin(*next)) commands_.erase(next);
    } else {
      const Command command = std::move(*next);
      commands_.erase(next);
      End(command);
    }
  }
  busy_ = false;
}

bool RegistryEditor::Begin(Command& command) {
  command.file_open = true;
  command.due_us += std::uint64_t{duration_ms_} * 1000;
  if (!command.exports) {
    return HostedPc::Current().files().ReadWhole(command.file, command.text) == ERROR_SUCCESS;
  }
  const std::size_t items = CountForExport(HostedPc::Current().registry(), command.key);
  if (items == 0) return false;
  if (HostedPc::Current().files().WriteWhole(command.file, "") != ERROR_SUCCESS) return false;
  command.due_us += kItemUs * items;
  return true;
}

void RegistryEditor::End(const Command& command) {
  RegistryStore& registry = HostedPc::Current().registry();
  if (!command.exports) {
    ImportRegistryText(command.text, registry);
    return;
  }
  const auto form = eight_bit_ ? ScriptForm::kRegedit4 : ScriptForm::kVersion5;
  HostedPc::Current().files().WriteWhole(command.file,
                                         ExportRegistryText(registry, command.key, form));
}

bool RegistryEditor::IsRunning(std::uint64_t number) const {
  return std::any_of(commands_.begin(), commands_.end(),
                     [number](const Command& command) { return command.number == number; });
}

bool RegistryEditor::IsWriting(std::string_view path) const {
  return !busy_ && std::any_of(commands_.begin(), commands_.end(), [path](const Command& command) {
    return command.exports && command.file_open && SameFile(command.file, path);
  });
}

}  // namespace tidemark::hosted
