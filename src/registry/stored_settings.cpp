#include "registry/stored_settings.h"

#include <cstdint>
#include <limits>
#include <optional>

#include "helpers/settings_key.h"
#include "helpers/text_helpers.h"
#include "platform/winapi.h"
#include "registry/mdlRegistry.h"

namespace tidemark {

std::string Setting(const char* name, const char* default_text) {
  return GetRegString(HKEY_CURRENT_USER, kSettingsKey, name, default_text);
}

void SaveSetting(const char* name, const std::string& text) {
  SaveRegString(HKEY_CURRENT_USER, kSettingsKey, name, text);
}

void TakeNumber(int& number, const std::string& text) {
  using Limits = std::numeric_limits<std::int16_t>;
  const std::optional<std::int32_t> rounded = RoundToLong(LeadingNumber(text));
  if (rounded && *rounded >= Limits::min() && *rounded <= Limits::max()) number = *rounded;
}

void TakeNumber(CheckBox& box, const std::string& text) {
  int value = box.Value();
  TakeNumber(value, text);
  box.SetValue(value);
}

}  // namespace tidemark
