// An owner for platform handles. A policy names the handle's type, its invalid value and the call
// that closes it; the last error survives the close.
#pragma once

#include <utility>

#include "platform/winapi.h"

namespace tidemark {

template <class Policy>
class UniqueHandle {
 public:
  using Handle = typename Policy::Handle;

  UniqueHandle() = default;
  explicit UniqueHandle(Handle handle) : handle_(handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.Release()) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    if (this != &other) Reset(other.Release());
    return *this;
  }
  ~UniqueHandle() { Reset(); }

  Handle Get() const { return handle_; }
  explicit operator bool() const { return handle_ != Policy::Invalid(); }
  Handle Release() { return std::exchange(handle_, Policy::Invalid()); }
  void Reset(Handle handle = Policy::Invalid()) {
    if (handle_ != Policy::Invalid()) {
      const DWORD last_error = GetLastError();
      Policy::Close(handle_);
      SetLastError(last_error);
    }
    handle_ = handle;
  }

 private:
  Handle handle_ = Policy::Invalid();
};

struct FileHandlePolicy {
  using Handle = HANDLE;
  static Handle Invalid() { return INVALID_HANDLE_VALUE; }
  static void Close(Handle handle) { CloseHandle(handle); }
};
using UniqueFile = UniqueHandle<FileHandlePolicy>;

struct KeyPolicy {
  using Handle = HKEY;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { RegCloseKey(handle); }
};
using UniqueKey = UniqueHandle<KeyPolicy>;

}  // namespace tidemark
