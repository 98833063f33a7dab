#include "platform/hosted/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/hosted/host_file.h"
#include "platform/hosted/hosted_pc.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Refuse(const fs::path& path) {
  throw HostedPcError(path.string() + ": " + std::strerror(errno));
}

// What was written is on the disk before the name changes, and the name before the PC is off.
void Flush(const fs::path& path, int flags) {
  const HostFile file(open(path.c_str(), flags | O_CLOEXEC));
  if (!file || fsync(file.get()) != 0) Refuse(path);
}

}  // namespace

void (*before_rename)() = nullptr;

void ReplaceFile(const fs::path& fresh, const fs::path& target) {
  try {
    struct stat former {};
    if (stat(target.c_str(), &former) == 0) chmod(fresh.c_str(), former.st_mode & 07777U);
    Flush(fresh, O_RDONLY);
    if (before_rename != nullptr) before_rename();
    if (rename(fresh.c_str(), target.c_str()) != 0) Refuse(target);
    Flush(target.parent_path(), O_RDONLY | O_DIRECTORY);
  } catch (const HostedPcError&) {
    unlink(fresh.c_str());
    throw;
  }
}

}  // namespace tidemark::hosted
