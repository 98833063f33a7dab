// Finds the values of a key with very many values by name: a hash table with open addressing and
// linear probing over the identities of the values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/hosted/registry_key.h"

namespace tidemark::hosted {

class RegistryValueIndex {
 public:
  using Values = PackedList<RegistryValue>;

  explicit RegistryValueIndex(const Values& values);

  // The value that stands last in the list, under a name that is not in the index.
  void AddLast(const Values& values);
  // A new block has taken the place of an old one of the same name.
  void Replace(const void* old_identity, const RegistryValue& value);
  // Before the value is taken out of the list.
  void Remove(const RegistryValue& value);
  // The value's position, or the number of values.
  std::size_t Find(const Values& values, std::string_view name, std::uint32_t hash) const;

 private:
  struct Slot {
    const void* identity = nullptr;
    std::uint32_t hash = 0;
    std::uint32_t position = 0;  // at the time when it was added
  };

  std::size_t SlotOf(const void* identity, std::uint32_t hash) const;
  void Put(const Slot& slot);
  void Grow();

  std::vector<Slot> slots_;  // a power of two
  std::size_t used_ = 0;     // also by what is gone
  std::size_t removed_ = 0;
};

}  // namespace tidemark::hosted
