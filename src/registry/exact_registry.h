// The registry with every bit of it, over the platform's 16-bit calls: for what has to come back as
// it was. mdlRegistry.h is the layer for all else; its calls convert texts, and stop at lengths
// that these pass.
//
// Names and paths are UTF-8 in which a lone surrogate is kept (exact_text.h). Each call gives the
// platform's status.
#pragma once

#include <string>
#include <string_view>

#include "platform/unique_handle.h"
#include "platform/winapi.h"

namespace tidemark {

struct ExactValue {
  DWORD type = 0;
  std::string bytes;  // as stored: texts are 16-bit, with or without their end

  bool operator==(const ExactValue&) const = default;
};

class ExactKey {
 public:
  // To read. The path lies below the parent.
  static LSTATUS Open(HKEY parent, std::string_view path, ExactKey& key);
  // To write; makes the key and those above it that are missing.
  static LSTATUS Create(HKEY parent, std::string_view path, ExactKey& key);

  HKEY Handle() const { return key_.Get(); }

  // By index, from 0; ERROR_NO_MORE_ITEMS past the end. A name may hold a NUL, and then no call by
  // name finds what it stands for.
  LSTATUS SubKeyName(DWORD index, std::string& name) const;
  LSTATUS ValueName(DWORD index, std::string& name) const;

  // The default value has the empty name.
  LSTATUS Read(std::string_view name, ExactValue& value) const;
  LSTATUS Write(std::string_view name, const ExactValue& value) const;
  LSTATUS DeleteValue(std::string_view name) const;

 private:
  UniqueKey key_;
};

// Deletes a key that has no keys below it.
LSTATUS DeleteEmptyKey(HKEY parent, std::string_view path);

}  // namespace tidemark
