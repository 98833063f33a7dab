#include "platform/hosted/registry_handles.h"

namespace tidemark::hosted {

// A handle is the slot's number (times 4, as on the platform) below its generation, which is never
// 0: so it is none of the predefined ones.
HKEY RegistryHandles::Open(const RegistryView& view, REGSAM access) {
  if (free_ == kNone) {
    free_ = static_cast<std::uint32_t>(slots_.size());
    slots_.emplace_back().next_free = kNone;
  }
  const std::uint32_t number = free_;
  Slot& slot = slots_[number];
  free_ = slot.next_free;
  ++slot.generation;
  slot.entry = {view, access};
  slot.tree_version = store_.tree_version();
  Hold(view.top);
  Hold(view.under);
  return winapi_detail::KeyHandle(std::uintptr_t{slot.generation} << 32U |
                                  (std::uintptr_t{number} + 1) * 4);
}

bool RegistryHandles::Close(HKEY key) {
  Slot* slot = SlotOf(key);
  if (slot == nullptr) return false;
  Release(slot->entry.view.top);
  Release(slot->entry.view.under);
  slot->entry = {};
  ++slot->generation;
  slot->next_free = free_;
  free_ = static_cast<std::uint32_t>(slot - slots_.data());
  return true;
}

const RegistryHandles::Entry* RegistryHandles::Find(HKEY key) {
  Slot* slot = SlotOf(key);
  if (slot == nullptr) return nullptr;
  if (slot->tree_version != store_.tree_version()) {
    const RegistryView old = slot->entry.view;
    const RegistryView fresh = store_.Refresh(old);
    Hold(fresh.top);
    Hold(fresh.under);
    slot->entry.view = fresh;
    slot->tree_version = store_.tree_version();
    Release(old.top);
    Release(old.under);
  }
  return &slot->entry;
}

RegistryHandles::Slot* RegistryHandles::SlotOf(HKEY key) {
  const auto bits = reinterpret_cast<std::uintptr_t>(key);
  const std::uintptr_t low = bits & 0xFFFFFFFFU;
  if (low == 0 || low % 4 != 0 || low / 4 > slots_.size()) return nullptr;
  Slot& slot = slots_[low / 4 - 1];
  return slot.generation % 2 != 0 && slot.generation == bits >> 32U ? &slot : nullptr;
}

void RegistryHandles::Hold(RegistryKey* key) {
  if (key != nullptr) key->AddHandle();
}

void RegistryHandles::Release(RegistryKey* key) {
  if (key != nullptr && key->RemoveHandle() == 0 && key->deleted()) store_.Bury(*key);
}

}  // namespace tidemark::hosted
