#include "platform/hosted/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "platform/hosted/hosted_pc.h"

namespace tidemark::hosted {

FolderLock::FolderLock(const std::filesystem::path& folder) {
  file_ = HostFile(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  taken_ = file_ && flock(file_.get(), LOCK_EX | LOCK_NB) == 0;
  if (!taken_ && errno != EWOULDBLOCK) {
    throw HostedPcError(folder.string() + ": can't be locked: " + std::strerror(errno));
  }
}

}  // namespace tidemark::hosted
