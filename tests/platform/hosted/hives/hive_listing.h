// A key with all below it as text, for comparing whole trees.
#pragma once

#include <string>

#include "platform/hosted/hives/hive_file.h"
#include "platform/hosted/hives/hive_text.h"
#include "platform/hosted/registry_key.h"

namespace tidemark::hosted {

inline std::string ListingOf(const RegistryKey& key, const std::string& above = "") {
  std::string listing;
  for (std::size_t i = 0; i < key.value_count(); ++i) {
    const RegistryValue& value = key.value(i);
    listing += above + std::string(value.name()) + "=" + std::to_string(value.type()) + ":" +
               DataForHive(value) + "\n";
  }
  for (std::size_t i = 0; i < key.key_count(); ++i) {
    const std::string path = above + key.key(i).name() + "\\";
    listing += path + "\n" + ListingOf(key.key(i), path);
  }
  return listing;
}

inline std::string ListingOf(const HiveFile& hive) {
  RegistryKey top(nullptr, "top");
  LoadHive(hive, top);
  return ListingOf(top);
}

// A hive that was never a file.
inline HiveFile HiveOf(const std::string& bytes) { return {"hive", {}, bytes, CheckHive(bytes)}; }

}  // namespace tidemark::hosted
