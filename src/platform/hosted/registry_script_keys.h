// Finds, and makes, the keys of a registry script's key lines. Lines come in the order of a walk,
// so what a line shares with the line before is not looked up again.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/hosted/registry_store.h"

namespace tidemark::hosted {

class ScriptKeyFinder {
 public:
  explicit ScriptKeyFinder(RegistryStore& store) : store_(store) {}

  // A view that does not exist when the root is unknown or the key is denied.
  RegistryView Make(std::string_view path);

  // After keys were deleted.
  void Forget() { steps_.clear(); }

 private:
  struct Step {
    std::size_t end;  // of the part in the path
    RegistryView view;
  };

  void Keep(std::string_view path);
  bool StartAt(std::string_view path);

  RegistryStore& store_;
  std::string last_;
  std::vector<Step> steps_;
};

}  // namespace tidemark::hosted
