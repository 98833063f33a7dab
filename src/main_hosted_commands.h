// The command line of the native program: which hosted PC it works on, and the commands that show
// no page.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/hosted/pc_choice.h"

namespace tidemark {

struct HostedArguments {
  std::string command;              // "--capture", or empty
  std::vector<std::string> places;  // folders, and what else stands alone
  hosted::DiskChoice choice;        // what is said of a disk
};

extern const char* const kHostedUsage;

// No value when they can't be understood.
std::optional<HostedArguments> ReadHostedArguments(const std::vector<std::string>& arguments);

// Does what the command line asks for and gives the exit status; no value when it asks for none of
// the commands. Throws HostedPcError.
std::optional<int> RunHostedCommand(const HostedArguments& arguments);

}  // namespace tidemark
