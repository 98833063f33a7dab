// Tells whether this process is the only one that works on a hosted PC's folder. The lock is held
// until the object goes, or the process ends.
#pragma once

#include <filesystem>

#include "platform/hosted/host_file.h"

namespace tidemark::hosted {

class FolderLock {
 public:
  // Tries to lock the folder itself; nothing is written. Throws HostedPcError when it can't be
  // tried.
  explicit FolderLock(const std::filesystem::path& folder);

  // False when another process had the lock when this object was made.
  bool taken() const { return taken_; }

 private:
  HostFile file_;
  bool taken_ = false;
};

}  // namespace tidemark::hosted
