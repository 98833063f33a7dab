// The record of an icon in the notification area, field by field the platform's NOTIFYICONDATA in
// its short form of 88 bytes: handles take 32 bits in it, which is all that the platform uses.
#pragma once

#include <array>
#include <cstdint>

namespace tidemark {

enum class TrayMessage : std::uint32_t { kAdd = 0, kDelete = 2 };

struct TrayIcon {
  std::uint32_t cbSize = 0;
  std::uint32_t hWnd = 0;  // the window that gets the callbacks
  std::uint32_t uID = 0;
  std::uint32_t uFlags = 0;
  std::uint32_t uCallbackMessage = 0;
  std::uint32_t hIcon = 0;
  std::array<char, 64> szTip{};
};
static_assert(sizeof(TrayIcon) == 88);

}  // namespace tidemark
