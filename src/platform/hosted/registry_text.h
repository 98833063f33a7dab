// The hosted registry from and to registry scripts, the text format of the registry editor.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/hosted/registry_store.h"
#include "platform/registry_script_writer.h"

namespace tidemark::hosted {

// Takes over a whole script; throws HostedPcError "path:LINE: what is wrong" at the first thing
// that can't be understood.
void LoadRegistryText(const std::filesystem::path& file, RegistryStore& store);

// As the editor imports: what can't be understood, and what is denied, is passed over. Any bytes
// do.
void ImportRegistryText(std::string_view bytes, RegistryStore& store);

// Writes HKEY_LOCAL_MACHINE, HKEY_USERS and what else there is, in version 5.00; throws
// HostedPcError.
void SaveRegistryText(const RegistryStore& store, const std::filesystem::path& file);

// The bytes of a script with the key and all below it, under the name by which it was asked for;
// with the empty name, HKEY_LOCAL_MACHINE and HKEY_USERS. Empty when there is no such key.
std::string ExportRegistryText(RegistryStore& store, std::string_view full_name, ScriptForm form);

// Keys and values that such a script holds.
std::size_t CountForExport(RegistryStore& store, std::string_view full_name);

}  // namespace tidemark::hosted
