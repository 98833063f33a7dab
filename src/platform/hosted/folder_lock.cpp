#include "platform/hosted/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "platform/hosted/hosted_pc.h"

namespace tidemark::hosted {

FolderLock::FolderLock(const std::filesystem::path& folder) {
  const std::filesystem::path path = folder / "tidemark.lock";
  file_ = HostFile(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666));
  taken_ = file_ && flock(file_.get(), LOCK_EX | LOCK_NB) == 0;
  if (!taken_ && errno != EWOULDBLOCK) {
    throw HostedPcError(path.string() + ": can't be locked: " + std::strerror(errno));
  }
}

}  // namespace tidemark::hosted
