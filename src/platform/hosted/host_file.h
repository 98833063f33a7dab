// An owned file descriptor of the host's system.
#pragma once

#include <unistd.h>

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
  explicit operator bool() const { return descriptor_ >= 0; }

 private:
  int descriptor_;
};

}  // namespace tidemark::hosted
