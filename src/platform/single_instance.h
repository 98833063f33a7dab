// The single-instance rule: one running Tidemark per user.
#pragma once

#include <memory>

namespace tidemark {

class SingleInstance {
 public:
  // Takes the lock if no other process has it. On a hosted PC each PC has its own.
  SingleInstance();
  ~SingleInstance();
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;

  // Whether another process had the lock when this object was made.
  bool AnotherIsRunning() const;

 private:
  struct Lock;
  std::unique_ptr<Lock> lock_;
};

}  // namespace tidemark
