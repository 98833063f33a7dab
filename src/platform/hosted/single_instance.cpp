#include "platform/single_instance.h"

#include <fcntl.h>
#include <sys/file.h>

#include "platform/hosted/host_file.h"
#include "platform/hosted/hosted_pc.h"

namespace tidemark {

struct SingleInstance::Lock {
  hosted::HostFile file;
  bool taken = false;
};

// The lock ends with the file's last descriptor, so also when the process is killed.
SingleInstance::SingleInstance() : lock_(std::make_unique<Lock>()) {
  const std::filesystem::path path = hosted::HostedPc::Current().folder() / "tidemark.lock";
  lock_->file = hosted::HostFile(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666));
  lock_->taken = flock(lock_->file.get(), LOCK_EX | LOCK_NB) == 0;
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::AnotherIsRunning() const { return !lock_->taken; }

}  // namespace tidemark
