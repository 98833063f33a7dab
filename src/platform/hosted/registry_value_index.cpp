#include "platform/hosted/registry_value_index.h"

#include <bit>

#include "platform/hosted/registry_names.h"

namespace tidemark::hosted {
namespace {

// Marks the slot of a value that is gone: the search goes on behind it.
constexpr char kGoneMark = 0;
const void* const kGone = &kGoneMark;

}  // namespace

RegistryValueIndex::RegistryValueIndex(const Values& values)
    : slots_(std::bit_ceil(values.size() * 2)) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    Put({values[i].identity(), values[i].name_hash(), static_cast<std::uint32_t>(i)});
  }
}

void RegistryValueIndex::AddLast(const Values& values) {
  if (used_ + used_ / 4 >= slots_.size()) Grow();
  const RegistryValue& value = values[values.size() - 1];
  // Counted as if nothing had been removed, as the positions of those before it are.
  Put({value.identity(), value.name_hash(),
       static_cast<std::uint32_t>(values.size() - 1 + removed_)});
}

void RegistryValueIndex::Replace(const void* old_identity, const RegistryValue& value) {
  slots_[SlotOf(old_identity, value.name_hash())].identity = value.identity();
}

void RegistryValueIndex::Remove(const RegistryValue& value) {
  slots_[SlotOf(value.identity(), value.name_hash())].identity = kGone;
  ++removed_;
}

std::size_t RegistryValueIndex::Find(const Values& values, std::string_view name,
                                     std::uint32_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t i = hash & mask; slots_[i].identity != nullptr; i = (i + 1) & mask) {
    const Slot& slot = slots_[i];
    if (slot.hash != hash || slot.identity == kGone) continue;
    // Every value that was removed stood before it or behind it: it can't be further to the front
    // than this, and when values are removed in their order it is exactly here.
    std::size_t position = slot.position > removed_ ? slot.position - removed_ : 0;
    while (position < values.size() && values[position].identity() != slot.identity) ++position;
    if (position < values.size() && SameName(values[position].name(), name)) return position;
  }
  return values.size();
}

std::size_t RegistryValueIndex::SlotOf(const void* identity, std::uint32_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t i = hash & mask;
  while (slots_[i].identity != identity) i = (i + 1) & mask;
  return i;
}

void RegistryValueIndex::Put(const Slot& slot) {
  const std::size_t mask = slots_.size() - 1;
  std::size_t i = slot.hash & mask;
  while (slots_[i].identity != nullptr) i = (i + 1) & mask;
  slots_[i] = slot;
  ++used_;
}

void RegistryValueIndex::Grow() {
  std::vector<Slot> old(slots_.size() * 2);
  old.swap(slots_);
  used_ = 0;
  for (const Slot& slot : old) {
    if (slot.identity != nullptr && slot.identity != kGone) Put(slot);
  }
}

}  // namespace tidemark::hosted
