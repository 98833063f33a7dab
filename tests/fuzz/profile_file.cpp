// Profile files: section, key and value stand in the first three lines, the file behind them. What
// is set reads back, and what is removed is gone.
#include <cstdint>
#include <string>

#include "platform/hosted/profile_text.h"
#include "tests/fuzz/fuzz_pc.h"

namespace {

std::string TakeLine(std::string& text) {
  const auto end = text.find('\n');
  std::string line = text.substr(0, end);
  text.erase(0, end == std::string::npos ? end : end + 1);
  return line;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using tidemark::hosted::ProfileText;
  std::string text(reinterpret_cast<const char*>(data), size);
  const std::string section = TakeLine(text);
  const std::string key = TakeLine(text);
  const std::string value = TakeLine(text);
  ProfileText profile(text);
  for (const std::string_view name : profile.Sections()) {
    for (const std::string_view one :
         profile.Keys(name).value_or(std::vector<std::string_view>{})) {
      profile.Value(name, one);
    }
  }
  ProfileText changed = profile;
  changed.Set(section, key, value);
  changed.Set(section, key, value);
  ProfileText removed = changed;
  removed.Remove(section, key);
  removed.RemoveSection(section);
  // Names and values that no line of such a file can hold are the caller's own.
  constexpr const char* kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
  const auto is_plain = [](const std::string& name) {
    return !name.empty() && name.find_first_not_of(kPlain) == std::string::npos;
  };
  if (is_plain(section) && is_plain(key) && is_plain(value)) {
    tidemark::fuzz::Require(changed.Value(section, key) == value);
    tidemark::fuzz::Require(removed.text().size() <= changed.text().size());
  }
  return 0;
}
