#include "platform/hosted/registry_names.h"

#include <algorithm>

#include "platform/letter_case.h"

namespace tidemark::hosted {
namespace {

unsigned char ByteAt(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

unsigned char AsciiCapital(unsigned char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<unsigned char>(byte - 0x20) : byte;
}

}  // namespace

int CompareNames(std::string_view left, std::string_view right) {
  const std::size_t common = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < common; ++i) {
    const unsigned char a = ByteAt(left, i);
    const unsigned char b = ByteAt(right, i);
    if (((a | b) & 0x80U) != 0) return CompareIgnoringCase(left.substr(i), right.substr(i));
    if (a == b) continue;
    const int difference = AsciiCapital(a) - AsciiCapital(b);
    if (difference != 0) return difference;
  }
  if (left.size() == right.size()) return 0;
  return left.size() < right.size() ? -1 : 1;
}

bool SameName(std::string_view left, std::string_view right) {
  return left == right || CompareNames(left, right) == 0;
}

std::uint32_t HashName(std::string_view name) {
  std::uint32_t hash = 2166136261U;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const unsigned char byte = ByteAt(name, i);
    if (byte >= 0x80) {
      for (const char capital : UpperCase(name.substr(i))) {
        hash = (hash ^ static_cast<unsigned char>(capital)) * 16777619U;
      }
      break;
    }
    hash = (hash ^ AsciiCapital(byte)) * 16777619U;
  }
  return hash ^ hash >> 15U;
}

}  // namespace tidemark::hosted
