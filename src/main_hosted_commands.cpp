#include "main_hosted_commands.h"

#include <iostream>
#include <iterator>

#include "platform/hosted/capture.h"

namespace tidemark {
namespace {

// tidemark --capture-settings C D... <EXPORT
int WriteSettings(const std::vector<std::string>& drives) {
  std::string letters;
  for (const std::string& drive : drives) letters += drive.substr(0, 1);
  const std::string text(std::istreambuf_iterator<char>(std::cin), {});
  hosted::CaptureSettings(text, letters, std::cout);
  return std::cout.flush() ? 0 : 1;
}

}  // namespace

std::optional<int> RunHostedCommand(const std::vector<std::string>& arguments) {
  if (arguments.empty() || arguments[0] != "--capture-settings") return std::nullopt;
  return WriteSettings({arguments.begin() + 1, arguments.end()});
}

}  // namespace tidemark
