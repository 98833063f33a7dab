// A number that tells one text from another (FNV-1a, 64 bits); no protection against who means
// harm.
#pragma once

#include <cstdint>
#include <string_view>

namespace tidemark::hosted {

inline std::uint64_t FingerprintOf(std::string_view bytes) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211U;
  return hash;
}

}  // namespace tidemark::hosted
