// What the platform's registry calls share: the registry of the PC that is switched on, the texts
// that come in, and the checks of handles, paths and rights before a call does its work.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/exact_text.h"
#include "platform/hosted/registry_store.h"
#include "platform/winapi.h"

namespace tidemark::hosted {

// After what the registry editor was told to do has been done.
RegistryStore& CurrentRegistry();

inline std::string_view TextOrEmpty(LPCSTR text) {
  return text == nullptr ? std::string_view() : text;
}

inline bool LongerThan(std::string_view text, std::size_t units) {
  return text.size() > units && Utf16Length(text) > units;
}

// 16-bit text that comes in, with every unit of it (exact_text.h); empty for null.
std::string ExactText(LPCWSTR text);

// Whether the path has no parts.
inline bool NamesNoKey(std::string_view path) {
  return path.find_first_not_of('\\') == std::string_view::npos;
}

// Text that comes in; most is ASCII and need not be copied.
class IncomingText {
 public:
  explicit IncomingText(std::string_view text) : text_(text) {
    if (!IsAscii(text)) text_ = mended_ = MendText(text);
  }
  IncomingText(const IncomingText&) = delete;
  IncomingText& operator=(const IncomingText&) = delete;
  std::string_view text() const { return text_; }

 private:
  std::string mended_;
  std::string_view text_;
};

struct OpenKey {
  RegistryView view;
  REGSAM access = 0;
};

// ERROR_ACCESS_DENIED when the handle lacks one of the needed rights.
LONG Resolve(RegistryStore& store, HKEY key, REGSAM needed, OpenKey* open);

// The 8-bit calls take paths of 260 units at most.
enum class PathLimit { kEightBit, kNone };

// Of a call that takes a path below the key: checks the path too.
LONG ResolveForOpen(RegistryStore& store, HKEY key, std::string_view path, OpenKey* open,
                    PathLimit limit = PathLimit::kEightBit);

}  // namespace tidemark::hosted
