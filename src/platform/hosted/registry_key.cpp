#include "platform/hosted/registry_key.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/hosted/registry_limits.h"
#include "platform/hosted/registry_names.h"
#include "platform/hosted/registry_value_index.h"

namespace tidemark::hosted {
namespace {

// Up to here the values of a key are looked through one by one.
constexpr std::size_t kFewValues = 16;

}  // namespace

RegistryValue::RegistryValue(std::string_view name, std::uint32_t name_hash, DWORD type,
                             std::string_view data, std::optional<char> odd_byte)
    : block_(std::make_unique_for_overwrite<char[]>(sizeof(Header) + name.size() + data.size())) {
  const Header header{type,
                      name_hash,
                      static_cast<std::uint16_t>(name.size()),
                      static_cast<std::uint8_t>(odd_byte ? 1 : 0),
                      odd_byte.value_or('\0'),
                      static_cast<std::uint32_t>(data.size())};
  std::memcpy(block_.get(), &header, sizeof header);
  char* text = block_.get() + sizeof header;
  std::copy(name.begin(), name.end(), text);
  std::copy(data.begin(), data.end(), text + name.size());
}

RegistryKey::RegistryKey(RegistryKey* parent, std::string_view name)
    : name_(name), parent_(parent) {}

RegistryKey::~RegistryKey() = default;

std::size_t RegistryKey::Position(std::string_view name, bool* found) const {
  std::size_t low = 0;
  std::size_t high = keys_.size();
  // A walk asks for the neighbour of the last one, a load for the place behind all.
  for (const std::size_t guess : {std::size_t{last_found_}, std::size_t{last_found_} + 1}) {
    if (guess < low || guess >= high) continue;
    const int order = CompareNames(name, keys_[guess]->name_);
    if (order == 0) {
      last_found_ = static_cast<std::uint32_t>(guess);
      *found = true;
      return guess;
    }
    (order < 0 ? high : low) = order < 0 ? guess : guess + 1;
  }
  while (low < high) {
    const std::size_t middle = low + (high - low) / 2;
    const int order = CompareNames(name, keys_[middle]->name_);
    if (order == 0) {
      last_found_ = static_cast<std::uint32_t>(middle);
      *found = true;
      return middle;
    }
    (order < 0 ? high : low) = order < 0 ? middle : middle + 1;
  }
  *found = false;
  return low;
}

RegistryKey* RegistryKey::FindKey(std::string_view name) const {
  bool found = false;
  const std::size_t position = Position(name, &found);
  return found ? keys_[position].get() : nullptr;
}

RegistryKey& RegistryKey::MakeKey(std::string_view name, bool* made) {
  bool found = false;
  const std::size_t position = Position(name, &found);
  if (!found) {
    keys_.Insert(position, std::make_unique<RegistryKey>(this, name));
    keys_[position]->limits_ = limits_ & kInherited;
    last_found_ = static_cast<std::uint32_t>(position);
  }
  if (made != nullptr) *made = !found;
  return *keys_[position];
}

std::unique_ptr<RegistryKey> RegistryKey::TakeKey(const RegistryKey& key) {
  bool found = false;
  const std::size_t position = Position(key.name_, &found);
  return keys_.Take(position);
}

std::size_t RegistryKey::FindValueAt(std::string_view name, std::uint32_t hash) const {
  if (values_.size() > kFewValues) {
    if (!index_) index_ = std::make_unique<RegistryValueIndex>(values_);
    return index_->Find(values_, name, hash);
  }
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (values_[i].name_hash() == hash && SameName(values_[i].name(), name)) return i;
  }
  return values_.size();
}

const RegistryValue* RegistryKey::FindValue(std::string_view name) const {
  if (values_.size() == 0) return nullptr;
  const std::size_t position = FindValueAt(name, HashName(name));
  return position < values_.size() ? &values_[position] : nullptr;
}

void RegistryKey::SetValue(std::string_view name, DWORD type, std::string_view data,
                           std::optional<char> odd_byte) {
  const std::uint32_t hash = HashName(name);
  const std::size_t position = FindValueAt(name, hash);
  if (position < values_.size()) {
    RegistryValue& value = values_[position];
    const RegistryValue old = std::exchange(value, {value.name(), hash, type, data, odd_byte});
    if (index_) index_->Replace(old.identity(), value);
  } else {
    values_.Insert(position, {name, hash, type, data, odd_byte});
    if (index_) index_->AddLast(values_);
  }
}

bool RegistryKey::DeleteValue(std::string_view name) {
  const std::size_t position = FindValueAt(name, HashName(name));
  if (position >= values_.size()) return false;
  if (index_) index_->Remove(values_[position]);
  values_.Take(position);
  if (values_.size() <= kFewValues) index_.reset();
  return true;
}

}  // namespace tidemark::hosted
