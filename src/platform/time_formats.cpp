// Those texts that are composed of the locale's others, the same way on both grounds.
#include <cstdio>

#include "platform/locale_formats.h"
#include "platform/locale_texts.h"

namespace tidemark {
namespace {

struct Field {
  std::string_view letters;
  WORD SYSTEMTIME::*number;
};

constexpr Field kFields[] = {
    {"dd", &SYSTEMTIME::wDay},  {"mm", &SYSTEMTIME::wMonth},  {"yy", &SYSTEMTIME::wYear},
    {"hh", &SYSTEMTIME::wHour}, {"nn", &SYSTEMTIME::wMinute}, {"ss", &SYSTEMTIME::wSecond},
};

const Field* FieldAt(std::string_view pattern) {
  for (const Field& field : kFields) {
    if (pattern.starts_with(field.letters)) return &field;
  }
  return nullptr;
}

std::string TwoDigits(unsigned number) {
  char text[16] = "";
  std::snprintf(text, sizeof(text), "%02u", number % 100);
  return text;
}

}  // namespace

std::string DateTimeText(const SYSTEMTIME& time) {
  const bool midnight = time.wHour == 0 && time.wMinute == 0 && time.wSecond == 0;
  return midnight ? DateText(time) : DateText(time) + ' ' + TimeText(time);
}

std::string FormatTime(const SYSTEMTIME& time, std::string_view pattern) {
  std::string text;
  while (!pattern.empty()) {
    if (const Field* field = FieldAt(pattern)) {
      text += TwoDigits(time.*field->number);
      pattern.remove_prefix(field->letters.size());
      continue;
    }
    const char letter = pattern.front();
    text += letter == '/'   ? DateSeparator()
            : letter == ':' ? TimeSeparator()
                            : std::string(1, letter);
    pattern.remove_prefix(1);
  }
  return text;
}

std::optional<SYSTEMTIME> ParseDate(const std::string& text) {
  const auto own = ReadOwnDate(text, UserFormats());
  return own ? own : ParseUsualDate(text);
}

std::optional<SYSTEMTIME> ParseTime(const std::string& text) {
  const auto own = ReadOwnTime(text, UserFormats());
  return own ? own : ParseDate(text);
}

}  // namespace tidemark
