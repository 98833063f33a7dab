// An owned file descriptor of the host's system.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace tidemark::hosted {

class HostFile {
 public:
  explicit HostFile(int descriptor = -1) : descriptor_(descriptor) {}
  HostFile(HostFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  HostFile& operator=(HostFile&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~HostFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  int get() const { return descriptor_; }
  int Release() { return std::exchange(descriptor_, -1); }
  explicit operator bool() const { return descriptor_ >= 0; }

 private:
  int descriptor_;
};

// openat for reading, which leaves no time of access behind where the host allows that.
inline HostFile OpenForReading(int folder, const char* path, int more_flags = 0) {
  const int flags = O_RDONLY | O_CLOEXEC | more_flags;
  const int descriptor = openat(folder, path, flags | O_NOATIME);
  return HostFile(descriptor < 0 && errno == EPERM ? openat(folder, path, flags) : descriptor);
}

}  // namespace tidemark::hosted
