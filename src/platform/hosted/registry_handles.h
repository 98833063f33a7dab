// The open registry handles of the process. A handle that was closed is never given out again, and
// one that is still open when the PC is switched off is no fault: programs leak them.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/hosted/registry_store.h"
#include "platform/winapi.h"

namespace tidemark::hosted {

class RegistryHandles {
 public:
  struct Entry {
    RegistryView view;
    REGSAM access = 0;  // the rights that were granted
  };

  explicit RegistryHandles(RegistryStore& store) : store_(store) {}

  HKEY Open(const RegistryView& view, REGSAM access);
  // False for what is no open handle.
  bool Close(HKEY key);
  // Null for what is no open handle. The view does not exist when the key was deleted. Valid until
  // the next call.
  const Entry* Find(HKEY key);

 private:
  struct Slot {
    Entry entry;
    std::uint64_t tree_version = 0;
    std::uint32_t generation = 0;  // odd while open
    std::uint32_t next_free = 0;
  };

  Slot* SlotOf(HKEY key);
  void Hold(RegistryKey* key);
  void Release(RegistryKey* key);

  RegistryStore& store_;
  std::vector<Slot> slots_;
  std::uint32_t free_ = kNone;
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;
};

}  // namespace tidemark::hosted
