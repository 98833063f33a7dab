// Between the data of a hive, where texts are 16-bit, and that of the registry in memory.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/hosted/registry_key.h"

namespace tidemark::hosted {

// As RegistryKey::SetValue takes it.
struct StoredData {
  std::string_view data;
  std::optional<char> odd_byte;
};

// `text` holds the data where it is not the bytes themselves.
StoredData DataFromHive(DWORD type, std::string_view bytes, std::string& text);
std::string DataForHive(const RegistryValue& value);

}  // namespace tidemark::hosted
