// What the native program takes beside a hosted PC's folder: the commands that show no page.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tidemark {

// Does what the command line asks for and gives the exit status; no value when it asks for none of
// the commands. Throws HostedPcError.
std::optional<int> RunHostedCommand(const std::vector<std::string>& arguments);

}  // namespace tidemark
