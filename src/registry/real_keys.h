// Where a registry key really stands: HKEY_CLASSES_ROOT shows the user's classes over the
// machine's, and what is put back belongs into the half from which it went.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/winapi.h"

namespace tidemark {

struct RealKey {
  HKEY root = nullptr;
  std::string path;  // parts divided by single backslashes
};

// "HKEY_CURRENT_USER\Software\Classes\.txt".
std::string FullName(const RealKey& key);
// The same for all spellings of one key.
std::string Identity(const RealKey& key);
// Of a full name; no value when its root is unknown, or nothing stands behind the root.
std::optional<RealKey> KeyOfFullName(std::string_view full_name);

// The places that a key of that name may stand for: itself, or the two halves of the classes.
std::vector<RealKey> PossiblePlaces(HKEY root, std::string_view sub_key);
// Those of them that are there; the key itself when none is.
std::vector<RealKey> RealPlaces(HKEY root, std::string_view sub_key);

}  // namespace tidemark
