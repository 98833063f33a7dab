#include "platform/program_start.h"

#include <algorithm>
#include <cstdint>

#include "platform/hosted/clock.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_editor.h"

namespace tidemark {
namespace {

constexpr std::uint32_t kLongestWaitMs = 2000;

}  // namespace

bool StartProgram(const std::string& command_line, WindowStyle /*style*/) {
  hosted::HostedPc& pc = hosted::HostedPc::Current();
  pc.editor().CatchUp();
  if (!pc.editor().Start(command_line)) return false;
  pc.clock().Sleep(std::min(pc.editor().StartUp(), kLongestWaitMs));
  pc.editor().CatchUp();
  return true;
}

// No window of a hosted PC has the focus.
void SendKeystrokes(const std::string& /*keys*/) {}

}  // namespace tidemark
