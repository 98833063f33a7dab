#include "platform/locale_texts.h"

#include <oleauto.h>

#include "platform/locale_formats.h"
#include "platform/unicode.h"

namespace tidemark {
namespace {

// The wide calls, since the 8-bit ones convert by the code page of the locale and not of the
// process.
std::string Utf8(const wchar_t* text, int size_with_nul) {
  if (size_with_nul <= 1) return {};
  const std::size_t units = static_cast<std::size_t>(size_with_nul) - 1;
  return Utf8FromUtf16(std::string_view(reinterpret_cast<const char*>(text), units * 2));
}

std::string FormatDate(const SYSTEMTIME& time, DWORD flags, const wchar_t* picture) {
  wchar_t text[128] = L"";
  return Utf8(text, GetDateFormatW(LOCALE_USER_DEFAULT, flags, &time, picture, text, 128));
}

std::string LocaleText(LCTYPE type) {
  wchar_t text[128] = L"";
  return Utf8(text, GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, 128));
}

struct FreeText {
  BSTR text;
  ~FreeText() { SysFreeString(text); }
};

}  // namespace

std::string DateText(const SYSTEMTIME& time) { return FormatDate(time, DATE_SHORTDATE, nullptr); }

std::string TimeText(const SYSTEMTIME& time) {
  wchar_t text[128] = L"";
  return Utf8(text, GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, text, 128));
}

std::string DateSeparator() { return LocaleText(LOCALE_SDATE); }
std::string TimeSeparator() { return LocaleText(LOCALE_STIME); }

std::string LongDateText(const SYSTEMTIME& time) {
  return FormatDate(time, 0, L"dddd, MMMM dd yyyy");
}

LocaleFormats UserFormats() {
  return {LocaleText(LOCALE_SSHORTDATE),
          LocaleText(LOCALE_STIMEFORMAT),
          DateSeparator(),
          TimeSeparator(),
          LocaleText(LOCALE_S1159),
          LocaleText(LOCALE_S2359)};
}

std::optional<SYSTEMTIME> ParseUsualDate(const std::string& text) {
  const std::string utf16 = Utf16FromUtf8(text);
  const FreeText owned{SysAllocStringByteLen(utf16.data(), static_cast<UINT>(utf16.size()))};
  DATE date = 0;
  SYSTEMTIME time{};
  if (FAILED(VarDateFromStr(owned.text, LOCALE_USER_DEFAULT, 0, &date)) ||
      VariantTimeToSystemTime(date, &time) == FALSE) {
    return std::nullopt;
  }
  return time;
}

}  // namespace tidemark
