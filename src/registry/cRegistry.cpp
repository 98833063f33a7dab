#include "registry/cRegistry.h"

#include <array>
#include <bit>
#include <optional>

#include "helpers/system_helpers.h"
#include "platform/unicode.h"
#include "platform/unique_handle.h"

namespace tidemark {
namespace {

constexpr REGSAM kQuery = 1;
constexpr REGSAM kEnumerate = 8;
constexpr REGSAM kChange = 63;
// A name's length is told in 16-bit units; each is at most 3 bytes of UTF-8.
constexpr DWORD kBytesPerUnit = 3;

UniqueKey Open(HKEY root, const std::string& section, REGSAM access) {
  HKEY key = nullptr;
  if (RegOpenKeyExA(root, section.c_str(), 0, access, &key) != ERROR_SUCCESS) return {};
  return UniqueKey(key);
}

UniqueKey Create(HKEY root, const std::string& section) {
  HKEY key = nullptr;
  std::array<char, 1> no_class{};
  if (RegCreateKeyExA(root, section.c_str(), 0, no_class.data(), REG_OPTION_NON_VOLATILE, kChange,
                      nullptr, &key, nullptr) != ERROR_SUCCESS) {
    return {};
  }
  return UniqueKey(key);
}

struct Stored {
  DWORD type = 0;
  std::vector<std::uint8_t> bytes;
};

std::optional<Stored> Read(HKEY key, const std::string& name) {
  Stored stored;
  DWORD size = 0;
  const LSTATUS found = RegQueryValueExA(key, name.c_str(), nullptr, &stored.type, nullptr, &size);
  if (found != ERROR_SUCCESS && found != ERROR_MORE_DATA) return std::nullopt;
  stored.bytes.resize(size);
  if (size > 0 && RegQueryValueExA(key, name.c_str(), nullptr, &stored.type, stored.bytes.data(),
                                   &size) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  stored.bytes.resize(size);
  return stored;
}

std::uint32_t Number(const std::vector<std::uint8_t>& bytes, bool big_endian) {
  std::uint32_t number = 0;
  for (std::size_t index = 0; index < sizeof number && index < bytes.size(); ++index) {
    const std::size_t place = big_endian ? sizeof number - 1 - index : index;
    number |= std::uint32_t{bytes[index]} << (8 * place);
  }
  return number;
}

// Nothing for a text that has not even a terminating byte.
std::optional<RegistryData> Decoded(Stored stored) {
  switch (stored.type) {
    case REG_SZ:
    case REG_EXPAND_SZ:
    case REG_MULTI_SZ: {
      if (stored.bytes.empty()) return std::nullopt;
      const std::string text(stored.bytes.begin(), stored.bytes.end() - 1);
      return stored.type == REG_EXPAND_SZ ? ExpandEnvString(text) : text;
    }
    case REG_DWORD:
    case REG_DWORD_BIG_ENDIAN:
      return std::bit_cast<std::int32_t>(Number(stored.bytes, stored.type == REG_DWORD_BIG_ENDIAN));
    default:
      stored.bytes.push_back(0);
      return std::move(stored.bytes);
  }
}

std::string DataText(const RegistryData& data) {
  if (const auto* text = std::get_if<std::string>(&data)) return *text;
  if (const auto* narrow = std::get_if<std::int16_t>(&data)) return std::to_string(*narrow);
  if (const auto* wide = std::get_if<std::int32_t>(&data)) return std::to_string(*wide);
  return {};
}

bool HasTwoPercentSigns(const std::string& text) {
  const auto first = text.find('%');
  return first != std::string::npos && text.find('%', first + 1) != std::string::npos;
}

// The type and the bytes under which data is stored; nothing when the type can't hold it.
std::optional<Stored> Encoded(DWORD type, const RegistryData& data) {
  if (type == REG_SZ || type == REG_EXPAND_SZ) {
    if (std::holds_alternative<std::vector<std::uint8_t>>(data)) return std::nullopt;
    const std::string text = DataText(data);
    const DWORD stored_type = HasTwoPercentSigns(text) ? REG_EXPAND_SZ : REG_SZ;
    Stored stored{stored_type, {text.begin(), text.end()}};
    stored.bytes.push_back(0);
    return stored;
  }
  if (type == REG_BINARY) {
    const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&data);
    if (bytes == nullptr) return std::nullopt;
    return Stored{REG_BINARY, *bytes};
  }
  if (type != REG_DWORD && type != REG_DWORD_BIG_ENDIAN) return std::nullopt;
  std::int32_t number = 0;
  if (const auto* narrow = std::get_if<std::int16_t>(&data)) {
    number = *narrow;
  } else if (const auto* wide = std::get_if<std::int32_t>(&data)) {
    number = *wide;
  } else {
    return std::nullopt;
  }
  const auto bytes = std::bit_cast<std::array<std::uint8_t, 4>>(number);
  return Stored{REG_DWORD, {bytes.begin(), bytes.end()}};
}

}  // namespace

void cRegistry::SetMachine(std::string machine) {
  constexpr std::size_t kTooShort = 2;
  if (FirstCharacters(machine, kTooShort).size() == machine.size()) {
    machine.clear();
  } else if (!machine.starts_with("\\\\")) {
    machine.insert(0, "\\\\");
  }
  machine_ = std::move(machine);
}

void cRegistry::Raise(const std::string& description) const {
  throw RegistryError("tidemark.cRegistry", description);
}

std::string cRegistry::Place() const {
  const auto root = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(class_key_));
  return std::to_string(std::bit_cast<std::int32_t>(root)) + "',Section: '" + section_key_ + "'";
}

// What is asked for is only whether the machine answers: all that follows goes to this machine's
// root, on purpose.
bool cRegistry::ConnectsToMachine() const {
  if (machine_.empty()) return true;
  HKEY remote = nullptr;
  const bool connected =
      RegConnectRegistryA(machine_.c_str(), class_key_, &remote) == ERROR_SUCCESS;
  const UniqueKey close(remote);
  return connected;
}

bool cRegistry::KeyExists() const {
  return static_cast<bool>(Open(class_key_, section_key_, kQuery));
}

bool cRegistry::CreateKey() {
  if (!Create(class_key_, section_key_)) {
    Raise("Failed to create registry Key: '" + section_key_ + "'");
  }
  return true;
}

bool cRegistry::DeleteKey() {
  if (RegDeleteKeyA(class_key_, section_key_.c_str()) != ERROR_SUCCESS) {
    Raise("Failed to delete registry Key: '" + Place());
  }
  return true;
}

bool cRegistry::DeleteValue() {
  const UniqueKey key = Open(class_key_, section_key_, kChange);
  if (!key) Raise("Failed to open key '" + Place() + " for delete access");
  if (RegDeleteValueA(key.Get(), value_key_.c_str()) != ERROR_SUCCESS) {
    // The last quote is missing on purpose.
    Raise("Failed to delete registry Key: '" + Place() + ",Key: '" + value_key_);
  }
  return true;
}

RegistryData cRegistry::Value() {
  if (!ConnectsToMachine()) return default_;
  const UniqueKey key = Open(class_key_, section_key_, kQuery);
  if (!key) return default_;
  std::optional<Stored> stored = Read(key.Get(), value_key_);
  if (!stored) return default_;
  value_type_ = stored->type;
  return Decoded(*std::move(stored)).value_or(default_);
}

void cRegistry::SetValue(const RegistryData& value) {
  if (!ConnectsToMachine()) return;
  const UniqueKey key = Create(class_key_, section_key_);
  const std::optional<Stored> stored = Encoded(value_type_, value);
  const bool written =
      key && stored &&
      RegSetValueExA(key.Get(), value_key_.c_str(), 0, stored->type, stored->bytes.data(),
                     static_cast<DWORD>(stored->bytes.size())) == ERROR_SUCCESS;
  if (written) return;
  Raise("Failed to set registry value Key: '" + Place() + ",Key: '" + value_key_ + "' to value: '" +
        DataText(value) + "'");
}

bool cRegistry::EnumerateValues(std::vector<std::string>& names) const {
  names.clear();
  const UniqueKey key = Open(class_key_, section_key_, kQuery);
  DWORD longest = 0;
  if (!key || RegQueryInfoKeyA(key.Get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                               nullptr, &longest, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
    return true;
  }
  std::string name(std::size_t{longest} * kBytesPerUnit + 1, '\0');
  for (DWORD index = 0;; ++index) {
    auto size = static_cast<DWORD>(name.size());
    if (RegEnumValueA(key.Get(), index, name.data(), &size, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      return true;
    }
    names.push_back(name.substr(0, size));
  }
}

bool cRegistry::EnumerateSections(std::vector<std::string>& names) const {
  names.clear();
  constexpr std::size_t kLongestKeyName = 255;
  const UniqueKey key = Open(class_key_, section_key_, kEnumerate);
  if (!key) return true;
  std::array<char, kLongestKeyName * kBytesPerUnit + 1> name{};
  for (DWORD index = 0;
       RegEnumKeyA(key.Get(), index, name.data(), static_cast<DWORD>(name.size())) == ERROR_SUCCESS;
       ++index) {
    names.emplace_back(name.data());
  }
  return true;
}

cRegistry::cRegistry(HKEY root, std::string section, std::string name, DWORD type,
                     RegistryData default_value)
    : class_key_(root),
      section_key_(std::move(section)),
      value_key_(std::move(name)),
      value_type_(type),
      default_(std::move(default_value)) {}

RegistryData cRegistry::ValueEx(HKEY root, const std::string& section, const std::string& name,
                                DWORD type, RegistryData default_value) {
  return cRegistry(root, section, name, type, std::move(default_value)).Value();
}

void cRegistry::SetValueEx(HKEY root, const std::string& section, const std::string& name,
                           DWORD type, RegistryData default_value, const RegistryData& value) {
  cRegistry(root, section, name, type, std::move(default_value)).SetValue(value);
}

}  // namespace tidemark
