// Makes hive files of any size from a key, straight, without the library that the program writes
// them with.
#pragma once

#include <string>

#include "platform/hosted/registry_key.h"

namespace tidemark {

enum class HiveMake {
  kYoung,  // version 1.5: lists with hashes ("lh"), long data in segments
  kOld,    // version 1.3: lists without hints ("li"), any data in one cell
};

// A sound hive whose root holds what the key holds; all keys have one security record, the time
// 0x01D0000000000000 and no class.
std::string MakeHive(const hosted::RegistryKey& top, HiveMake make = HiveMake::kYoung);

}  // namespace tidemark
