// A group of controls that share a name and are told apart by an index, which may have gaps.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "toolkit/control.h"

namespace tidemark {

template <class ControlType>
class ControlGroup {
 public:
  explicit ControlGroup(std::string name) : name_(std::move(name)) {}
  // With the members 0 to count - 1.
  ControlGroup(std::string name, Control* container, int count) : name_(std::move(name)) {
    for (int index = 0; index < count; ++index) Add(container, index);
  }

  ControlType& Add(Control* container, int index) {
    auto& member = members_[index];
    member = std::make_unique<ControlType>(container, name_ + "(" + std::to_string(index) + ")");
    return *member;
  }
  // Throws std::out_of_range for an index that no member has.
  ControlType& operator()(int index) { return *members_.at(index); }
  // Null for an index that no member has.
  ControlType* Find(int index) {
    const auto member = members_.find(index);
    return member == members_.end() ? nullptr : member->second.get();
  }
  int Count() const { return static_cast<int>(members_.size()); }

 private:
  std::string name_;
  std::map<int, std::unique_ptr<ControlType>> members_;
};

}  // namespace tidemark
