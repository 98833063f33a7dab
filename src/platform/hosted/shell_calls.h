// What the program asked the hosted PC's shell to open. The shell shows nothing; it remembers.
#pragma once

#include <string>
#include <vector>

namespace tidemark::hosted {

struct ShellRequest {
  std::string verb;
  std::string file;
  std::string parameters;
  std::string folder;
  int show = 0;
};

// In order, since the process began or the list was last cleared.
const std::vector<ShellRequest>& OpenedByShell();
void ForgetOpenedByShell();

}  // namespace tidemark::hosted
