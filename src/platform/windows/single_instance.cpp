#include "platform/single_instance.h"

#include "platform/unique_handle.h"

namespace tidemark {
namespace {

struct MutexPolicy {
  using Handle = HANDLE;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { CloseHandle(handle); }
};

}  // namespace

struct SingleInstance::Lock {
  UniqueHandle<MutexPolicy> mutex;
  bool taken = false;
};

// A local name is the user's session alone.
SingleInstance::SingleInstance() : lock_(std::make_unique<Lock>()) {
  SetLastError(ERROR_SUCCESS);
  lock_->mutex.Reset(CreateMutexA(nullptr, FALSE, "Local\\Tidemark.SingleInstance"));
  // A mutex that an elevated copy holds can't even be opened.
  const DWORD status = GetLastError();
  lock_->taken = status != ERROR_ALREADY_EXISTS && status != ERROR_ACCESS_DENIED;
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::AnotherIsRunning() const { return !lock_->taken; }

}  // namespace tidemark
