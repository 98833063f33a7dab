#include "platform/hosted/hives/hive_text.h"

#include "platform/exact_text.h"
#include "platform/registry_rules.h"

namespace tidemark::hosted {

StoredData DataFromHive(DWORD type, std::string_view bytes, std::string& text) {
  if (!IsTextType(type)) return {bytes, {}};
  text.clear();
  AppendFromUtf16(bytes, text);
  return {text, bytes.size() % 2 != 0 ? std::optional<char>(bytes.back()) : std::nullopt};
}

std::string DataForHive(const RegistryValue& value) {
  if (!IsTextType(value.type())) return std::string(value.data());
  std::string bytes;
  AppendAsUtf16(value.data(), bytes);
  if (value.odd_byte()) bytes += *value.odd_byte();
  return bytes;
}

}  // namespace tidemark::hosted
