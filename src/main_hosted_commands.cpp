#include "main_hosted_commands.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <iterator>

#include "platform/hosted/capture.h"
#include "platform/hosted/hosted_pc.h"

namespace tidemark {
namespace {

namespace fs = std::filesystem;

// The drives of the PC whose export comes from standard input.
int WriteSettings(const std::vector<std::string>& drives) {
  std::string letters;
  for (const std::string& drive : drives) letters += drive.substr(0, 1);
  const std::string text(std::istreambuf_iterator<char>(std::cin), {});
  hosted::CaptureSettings(text, letters, std::cout);
  return std::cout.flush() ? 0 : 1;
}

int CaptureDisk(const HostedArguments& arguments) {
  hosted::HostedPc pc(arguments.places[0], arguments.choice);
  hosted::CapturePc(pc, arguments.places[1]);
  return 0;
}

int LetGoOfFormerHives(const HostedArguments& arguments) {
  const hosted::HostedPc pc(arguments.places[0], arguments.choice);
  if (!pc.IsSoleUser()) {
    throw hosted::HostedPcError(arguments.places[0] + ": another Tidemark is working on it");
  }
  int status = 0;
  for (const fs::path& file : pc.FormerFiles()) {
    std::error_code error;
    fs::remove(file, error);
    if (error) status = 1;
    std::cout << file.string() << (error ? ": " + error.message() : ": deleted") << '\n';
  }
  return status;
}

struct Command {
  std::string_view name;
  std::size_t places;  // at least; of two folders exactly
  int (*run)(const HostedArguments& arguments);
};
constexpr Command kCommands[] = {
    {"--capture-settings", 0, [](const HostedArguments& all) { return WriteSettings(all.places); }},
    {"--capture-disk", 2, CaptureDisk},
    {"--let-go", 1, LetGoOfFormerHives},
};

bool ReadDriveChoice(const std::string& text, hosted::DiskChoice& choice) {
  if (text.size() < 3 || text[1] != '=') return false;
  const char letter = static_cast<char>(text[0] & ~0x20);
  std::error_code error;
  const fs::path folder = fs::canonical(text.substr(2), error);
  if (error || letter < 'A' || letter > 'Z') return false;
  choice.drives[letter] = folder;
  return true;
}

}  // namespace

const char* const kHostedUsage =
    "usage: tidemark FOLDER [--user NAME] [--drive D=FOLDER]...\n"
    "       tidemark --let-go FOLDER\n"
    "FOLDER is a hosted PC, or a mounted disk of Windows; the manual page says more.\n";

std::optional<HostedArguments> ReadHostedArguments(const std::vector<std::string>& arguments) {
  HostedArguments read;
  for (auto next = arguments.begin(); next != arguments.end(); ++next) {
    const bool has_value = next + 1 != arguments.end();
    if (*next == "--user" && has_value) {
      read.choice.user = *++next;
    } else if (*next == "--drive" && has_value) {
      if (!ReadDriveChoice(*++next, read.choice)) return std::nullopt;
    } else if (next->starts_with("--")) {
      if (!read.command.empty()) return std::nullopt;
      read.command = *next;
    } else {
      read.places.push_back(*next);
    }
  }
  if (read.command.empty()) return read.places.size() == 1 ? std::optional(read) : std::nullopt;
  const auto* const command =
      std::find_if(std::begin(kCommands), std::end(kCommands),
                   [&](const Command& known) { return known.name == read.command; });
  const bool known = command != std::end(kCommands) && read.places.size() >= command->places;
  return known ? std::optional(read) : std::nullopt;
}

std::optional<int> RunHostedCommand(const HostedArguments& arguments) {
  for (const Command& command : kCommands) {
    if (command.name == arguments.command) return command.run(arguments);
  }
  return std::nullopt;
}

}  // namespace tidemark
