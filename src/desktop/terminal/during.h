// Sets a variable for as long as a scope lasts, also when it is left by an exception.
#pragma once

#include <utility>

namespace tidemark {

template <class T>
class During {
 public:
  During(T& variable, T value)
      : variable_(variable), before_(std::exchange(variable, std::move(value))) {}
  ~During() { variable_ = std::move(before_); }
  During(const During&) = delete;
  During& operator=(const During&) = delete;

 private:
  T& variable_;
  T before_;
};

}  // namespace tidemark
