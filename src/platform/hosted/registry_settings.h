// What a registry tells of its PC's settings: environment, special folders, locale and the user's
// name. What it does not tell is as on a plain Windows PC.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/hosted/pc_settings.h"
#include "platform/hosted/registry_store.h"

namespace tidemark::hosted {

inline constexpr std::string_view kProfileList =
    "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList";

// The settings for the user, who is a key of HKEY_USERS. Of the drives those are told that the
// registry gives another kind than a fixed disk. `user_sid` is kept as it is.
PcSettings SettingsOfRegistry(RegistryStore& registry, std::string_view user_sid);

// A text value up to its end or its first line break, without expanding it; no value when there is
// no such text. `key` may be a full name such as "HKEY_LOCAL_MACHINE\SOFTWARE".
std::optional<std::string> RegistryText(RegistryStore& registry, std::string_view key,
                                        std::string_view name);

}  // namespace tidemark::hosted
