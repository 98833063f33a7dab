// The one key in which the program keeps its settings and counters, all as text.
#pragma once

namespace tidemark {

// Under HKEY_CURRENT_USER. The name stands in it twice, on purpose.
inline constexpr const char* kSettingsKey = "Software\\Tidemark\\Tidemark";

}  // namespace tidemark
