// A hosted PC for targets whose subject asks the platform: in a temporary folder, on for the whole
// run. Nothing outside that folder can be reached from it.
#pragma once

#include <cstdlib>
#include <filesystem>

#include "platform/hosted/hosted_pc.h"
#include "tests/support/temporary_folder.h"

namespace tidemark::fuzz {

class FuzzPc {
 public:
  // Where a program folder "C:\Tidemark" lies on the host.
  std::filesystem::path program_folder() const { return folder_.path() / "drives/C/Tidemark"; }

 private:
  static const std::filesystem::path& WithFolders(const std::filesystem::path& pc) {
    for (const char* const folder : {"drives/C/Tidemark", "drives/C/Windows/system32"}) {
      std::filesystem::create_directories(pc / folder);
    }
    return pc;
  }

  TemporaryFolder folder_;
  hosted::HostedPc pc_{WithFolders(folder_.path())};
};

// Ends the run with the input kept: the subject has broken a promise.
inline void Require(bool kept) {
  if (!kept) std::abort();
}

}  // namespace tidemark::fuzz
