#include "platform/windows/wide_text.h"

#include "platform/winapi.h"

namespace tidemark {

std::wstring Wide(std::string_view text) {
  if (text.empty()) return {};
  // No code page gives more units than it has bytes.
  const auto size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  const int units = MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(units));
  return wide;
}

std::string Narrow(std::wstring_view text) {
  if (text.empty()) return {};
  const auto units = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, text.data(), units, narrow.data(), size, nullptr, nullptr);
  return narrow;
}

}  // namespace tidemark
