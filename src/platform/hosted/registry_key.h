// One key of the hosted PC's registry with its values and sub-keys: sub-keys sorted ignoring case,
// values in the order they were made, both in constant time by index. Made for millions of nodes: a
// value is one block of memory, and only keys with many values have an index by name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/winapi.h"

namespace tidemark::hosted {

// A vector that also gives up elements near its front cheaply, so that removing all elements one by
// one costs no more than their number, from either end.
template <class Element>
class PackedList {
 public:
  std::size_t size() const { return elements_.size() - first_; }
  Element& operator[](std::size_t index) { return elements_[first_ + index]; }
  const Element& operator[](std::size_t index) const { return elements_[first_ + index]; }

  void Insert(std::size_t index, Element element) {
    elements_.insert(At(index), std::move(element));
  }

  Element Take(std::size_t index) {
    Element taken = std::move((*this)[index]);
    if (index < size() / 2) {
      std::move_backward(At(0), At(index), At(index + 1));
      ++first_;
      if (first_ > elements_.size() / 2) {
        elements_.erase(elements_.begin(), At(0));
        first_ = 0;
      }
    } else {
      elements_.erase(At(index));
    }
    return taken;
  }

 private:
  auto At(std::size_t index) {
    return elements_.begin() + static_cast<std::ptrdiff_t>(first_ + index);
  }

  std::vector<Element> elements_;
  std::size_t first_ = 0;
};

// A value: one block that holds type, name and data.
class RegistryValue {
 public:
  RegistryValue() = default;
  RegistryValue(std::string_view name, std::uint32_t name_hash, DWORD type, std::string_view data,
                std::optional<char> odd_byte);

  DWORD type() const { return header()->type; }
  std::uint32_t name_hash() const { return header()->name_hash; }
  std::string_view name() const { return {text(), header()->name_size}; }
  // Of the text types, the text as the 8-bit calls show it (exact_text.h), with the ending NUL if
  // one is stored.
  std::string_view data() const { return {text() + header()->name_size, header()->data_size}; }
  // Of the text types, what is left over of an odd number of bytes; the 8-bit calls don't show it.
  std::optional<char> odd_byte() const {
    return header()->has_odd_byte != 0 ? std::optional<char>(header()->odd_byte) : std::nullopt;
  }
  // Tells this value from others as long as it lives, wherever it is moved.
  const void* identity() const { return block_.get(); }

 private:
  struct Header {
    std::uint32_t type;
    std::uint32_t name_hash;
    std::uint16_t name_size;  // the longest name takes three bytes a unit
    std::uint8_t has_odd_byte;
    char odd_byte;
    std::uint32_t data_size;
  };
  const Header* header() const { return reinterpret_cast<const Header*>(block_.get()); }
  const char* text() const { return block_.get() + sizeof(Header); }

  std::unique_ptr<char[]> block_;
};

// Where the values of a big key stand, by name: the values' identities in a hash table.
class RegistryValueIndex;

class RegistryKey {
 public:
  RegistryKey(RegistryKey* parent, std::string_view name);
  ~RegistryKey();
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;

  const std::string& name() const { return name_; }
  RegistryKey* parent() const { return parent_; }

  std::size_t key_count() const { return keys_.size(); }
  RegistryKey& key(std::size_t index) const { return *keys_[index]; }
  // Null when there is none.
  RegistryKey* FindKey(std::string_view name) const;
  // The key of that name, made when there was none.
  RegistryKey& MakeKey(std::string_view name, bool* made = nullptr);
  std::unique_ptr<RegistryKey> TakeKey(const RegistryKey& key);

  std::size_t value_count() const { return values_.size(); }
  const RegistryValue& value(std::size_t index) const { return values_[index]; }
  // Null when there is none; "" is the default value.
  const RegistryValue* FindValue(std::string_view name) const;
  // An existing value keeps its place and the spelling of its name.
  void SetValue(std::string_view name, DWORD type, std::string_view data,
                std::optional<char> odd_byte = {});
  bool DeleteValue(std::string_view name);

  // Open handles on the key; a deleted key lives until the last is closed.
  void AddHandle() { ++handles_; }
  std::uint32_t RemoveHandle() { return --handles_; }
  std::uint32_t handles() const { return handles_; }
  bool deleted() const { return deleted_; }
  void MarkDeleted() { deleted_ = true; }

  // Of registry_limits.h; a new key is made with those that hold below its parent.
  std::uint8_t limits() const { return limits_; }
  void SetLimits(std::uint8_t limits) { limits_ = limits; }

 private:
  // Where a sub-key of that name is, or would be put.
  std::size_t Position(std::string_view name, bool* found) const;
  // The value's position, or the number of values.
  std::size_t FindValueAt(std::string_view name, std::uint32_t hash) const;

  std::string name_;
  RegistryKey* parent_;
  PackedList<std::unique_ptr<RegistryKey>> keys_;
  PackedList<RegistryValue> values_;
  mutable std::unique_ptr<RegistryValueIndex> index_;
  // The sub-key found last: who walks a key asks for its neighbour next.
  mutable std::uint32_t last_found_ = 0;
  std::uint32_t handles_ = 0;
  bool deleted_ = false;
  std::uint8_t limits_ = 0;
};

}  // namespace tidemark::hosted
