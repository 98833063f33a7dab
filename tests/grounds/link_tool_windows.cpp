// link_tool COMMAND FOLDER: on this PC.
#include <string>
#include <vector>

#include "tests/grounds/link_tool.h"

int main(int count, char** arguments) {
  return tidemark::RunLinkTool(std::vector<std::string>(arguments + 1, arguments + count));
}
