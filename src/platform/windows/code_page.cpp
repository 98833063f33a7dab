#include "platform/code_page.h"

#include <cstdlib>

#include "platform/winapi.h"

namespace tidemark {
namespace {

// CP_ACP is UTF-8 in this process (its manifest says so); other programs read and write 8-bit files
// in the code page of the system's locale.
UINT SystemCodePage() {
  static const UINT code_page = [] {
    char digits[8] = "";
    GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE, digits, sizeof(digits));
    const unsigned long number = std::strtoul(digits, nullptr, 10);
    // A locale without an 8-bit code page says 0; the system then keeps such files in UTF-8.
    return number == 0 ? static_cast<UINT>(CP_UTF8) : static_cast<UINT>(number);
  }();
  return code_page;
}

std::string Convert(std::string_view text, UINT from, UINT to) {
  if (text.empty()) return {};
  const auto size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  const int units = MultiByteToWideChar(from, 0, text.data(), size, wide.data(), size);
  const int needed = WideCharToMultiByte(to, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
  std::string converted(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(to, 0, wide.data(), units, converted.data(), needed, nullptr, nullptr);
  return converted;
}

}  // namespace

std::string ToSystemCodePage(std::string_view utf8) {
  return Convert(utf8, CP_UTF8, SystemCodePage());
}

std::string FromSystemCodePage(std::string_view bytes) {
  return Convert(bytes, SystemCodePage(), CP_UTF8);
}

}  // namespace tidemark
