// A hosted PC for targets whose subject asks the platform: in a temporary folder, on for the whole
// run. Nothing outside that folder can be reached from it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/hosted/hosted_pc.h"

namespace tidemark::fuzz {

class FuzzPc {
 public:
  FuzzPc() : folder_(MakeFolder()), pc_(folder_) {}
  ~FuzzPc() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  FuzzPc(const FuzzPc&) = delete;
  FuzzPc& operator=(const FuzzPc&) = delete;

  // Where a program folder "C:\Tidemark" lies on the host.
  std::filesystem::path program_folder() const { return folder_ / "drives/C/Tidemark"; }

 private:
  static std::filesystem::path MakeFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tidemark-fuzz-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::abort();
    for (const char* const folder : {"drives/C/Tidemark", "drives/C/Windows/system32"}) {
      std::filesystem::create_directories(std::filesystem::path(name) / folder);
    }
    return name;
  }

  std::filesystem::path folder_;
  hosted::HostedPc pc_;
};

// Ends the run with the input kept: the subject has broken a promise.
inline void Require(bool kept) {
  if (!kept) std::abort();
}

}  // namespace tidemark::fuzz
