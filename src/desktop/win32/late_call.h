// Calls that only newer systems have: bound by name at run time, so that the program starts on the
// older ones too.
#pragma once

#include "platform/winapi.h"

namespace tidemark {

// LateCall<decltype(&GetDpiForWindow)>("user32.dll", "GetDpiForWindow"): null where the system
// lacks it. The library has to be loaded already.
template <class Function>
Function LateCall(const char* library, const char* name) {
  const HMODULE module = GetModuleHandleA(library);
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace tidemark
