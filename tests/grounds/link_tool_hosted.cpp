// link_tool PC COMMAND FOLDER: on the hosted PC of that host folder.
#include <string>
#include <vector>

#include "platform/hosted/hosted_pc.h"
#include "tests/grounds/link_tool.h"

int main(int count, char** arguments) {
  if (count < 2) return tidemark::RunLinkTool({});
  const tidemark::hosted::HostedPc pc{arguments[1]};
  return tidemark::RunLinkTool(std::vector<std::string>(arguments + 2, arguments + count));
}
