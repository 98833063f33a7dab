#include "platform/program_start.h"

#include <algorithm>
#include <cstdint>

#include "platform/hosted/clock.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_editor.h"

namespace tidemark {
namespace {

constexpr std::uint32_t kLongestWaitMs = 2000;

class EditorCommand : public StartedProgram {
 public:
  explicit EditorCommand(std::uint64_t number) : number_(number) {}
  bool HasEnded() const override {
    hosted::RegistryEditor& editor = hosted::HostedPc::Current().editor();
    editor.CatchUp();
    return !editor.IsRunning(number_);
  }

 private:
  std::uint64_t number_;
};

}  // namespace

bool StartProgram(const std::string& command_line, WindowStyle style) {
  return StartAndFollow(command_line, style) != nullptr;
}

std::unique_ptr<StartedProgram> StartAndFollow(const std::string& command_line,
                                               WindowStyle /*style*/) {
  hosted::HostedPc& pc = hosted::HostedPc::Current();
  pc.editor().CatchUp();
  if (!pc.editor().Start(command_line)) return nullptr;
  pc.clock().Sleep(std::min(pc.editor().StartUp(), kLongestWaitMs));
  pc.editor().CatchUp();
  return std::make_unique<EditorCommand>(pc.editor().LastStarted());
}

// No window of a hosted PC has the focus.
void SendKeystrokes(const std::string& /*keys*/) {}

}  // namespace tidemark
