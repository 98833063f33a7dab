#include "platform/locale_formats.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "platform/letter_case.h"
#include "platform/unicode.h"

namespace tidemark {
namespace {

constexpr std::string_view kFieldLetters = "dMyhHmst";

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view WithoutBlanks(std::string_view text) {
  const auto start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(' ') + 1 - start);
}

// A text held against a picture, field by field. A number may have fewer digits than the picture
// has letters, and a year two or four.
class PictureReader {
 public:
  PictureReader(std::string_view text, const LocaleFormats& formats)
      : text_(WithoutBlanks(text)), formats_(formats) {}

  std::optional<SYSTEMTIME> Read(std::string_view picture) {
    if (text_.empty()) return std::nullopt;
    while (!picture.empty()) {
      if (!ReadPart(picture)) return std::nullopt;
    }
    return text_.empty() && IsTime() ? Moment() : std::nullopt;
  }

 private:
  // Takes one field, or one text that stands for itself, off both.
  bool ReadPart(std::string_view& picture) {
    const char letter = picture.front();
    if (letter == '\'') {
      const auto end = std::min(picture.find('\'', 1), picture.size());
      const std::string_view literal = picture.substr(1, end - 1);
      picture.remove_prefix(std::min(end + 1, picture.size()));
      return TakeLiteral(literal);
    }
    const auto count = std::min(picture.find_first_not_of(letter), picture.size());
    const std::string_view run = picture.substr(0, count);
    picture.remove_prefix(count);
    return kFieldLetters.find(letter) == std::string_view::npos ? TakeLiteral(run)
                                                                : ReadField(letter, count);
  }

  bool TakeLiteral(std::string_view literal) {
    if (!text_.starts_with(literal)) return false;
    text_.remove_prefix(literal.size());
    return true;
  }

  bool ReadField(char letter, std::size_t count) {
    switch (letter) {
      case 'd':
        has_date_ = true;
        return count <= 2 && TakeNumber(day_, 2) > 0;
      case 'M':
        return count <= 2 && TakeNumber(month_, 2) > 0;
      case 'y':
        return ReadYear();
      case 'h':
      case 'H':
        has_hour_ = true;
        half_day_clock_ = letter == 'h';
        return TakeNumber(hour_, 2) > 0;
      case 'm':
        return TakeNumber(minute_, 2) > 0;
      case 's':
        return TakeNumber(second_, 2) > 0;
      default:
        return ReadHalfOfDay(count);
    }
  }

  // The digits taken; 0 is a failure.
  std::size_t TakeNumber(unsigned& number, std::size_t most_digits) {
    number = 0;
    std::size_t digits = 0;
    while (digits < std::min(most_digits, text_.size()) && IsDigit(text_[digits])) {
      number = number * 10 + static_cast<unsigned>(text_[digits++] - '0');
    }
    text_.remove_prefix(digits);
    return digits;
  }

  bool ReadYear() {
    const std::size_t digits = TakeNumber(year_, 4);
    if (digits == 1 || digits == 2) year_ += year_ < 50 ? 2000 : 1900;
    return digits > 0;
  }

  bool ReadHalfOfDay(std::size_t count) {
    has_half_ = true;
    for (const std::string* const half : {&formats_.after_noon, &formats_.before_noon}) {
      const std::string_view letters = count == 1 ? FirstCharacters(*half, 1) : *half;
      const std::string_view start = text_.substr(0, letters.size());
      if (letters.empty() || CompareIgnoringCase(start, letters) != 0) continue;
      is_after_noon_ = half == &formats_.after_noon;
      text_.remove_prefix(letters.size());
      return true;
    }
    return formats_.before_noon.empty() && formats_.after_noon.empty();
  }

  bool IsTime() {
    if (half_day_clock_ && has_half_) {
      if (hour_ < 1 || hour_ > 12) return false;
      hour_ = hour_ % 12 + (is_after_noon_ ? 12 : 0);
    }
    return hour_ < 24 && minute_ < 60 && second_ < 60;
  }

  std::optional<SYSTEMTIME> Moment() const {
    using namespace std::chrono;
    const year_month_day date = has_date_
                                    ? year(static_cast<int>(year_)) / month(month_) / day(day_)
                                    : year(1899) / December / day(30);
    if (!(has_date_ || has_hour_) || !date.ok() || date.year() < year(100)) return std::nullopt;
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(static_cast<int>(date.year()));
    time.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    time.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
    time.wDayOfWeek = static_cast<WORD>(weekday(sys_days(date)).c_encoding());
    time.wHour = static_cast<WORD>(hour_);
    time.wMinute = static_cast<WORD>(minute_);
    time.wSecond = static_cast<WORD>(second_);
    return time;
  }

  std::string_view text_;
  const LocaleFormats& formats_;
  bool has_date_ = false;
  unsigned year_ = 0;
  unsigned month_ = 0;
  unsigned day_ = 0;
  unsigned hour_ = 0;
  unsigned minute_ = 0;
  unsigned second_ = 0;
  bool has_hour_ = false;
  bool half_day_clock_ = false;
  bool has_half_ = false;
  bool is_after_noon_ = false;
};

// Digits alone, in the order of the short date.
std::string NumbersOfDate(const LocaleFormats& formats) {
  std::string letters = "dMy";
  std::sort(letters.begin(), letters.end(), [&formats](char first, char second) {
    return formats.short_date.find(first) < formats.short_date.find(second);
  });
  const std::string& separator = formats.date_separator;
  return letters[0] + ('\'' + separator + '\'') + letters[1] + ('\'' + separator + '\'') +
         letters[2];
}

std::array<std::string, 2> TimePictures(const LocaleFormats& formats) {
  const std::string separator = '\'' + formats.time_separator + '\'';
  return {formats.long_time, 'H' + separator + 'm' + separator + 's'};
}

}  // namespace

std::optional<SYSTEMTIME> ReadOwnDate(std::string_view text, const LocaleFormats& formats) {
  for (const std::string& date : {formats.short_date, NumbersOfDate(formats)}) {
    if (const auto read = PictureReader(text, formats).Read(date)) return read;
    for (const std::string& time : TimePictures(formats)) {
      if (const auto read = PictureReader(text, formats).Read(date + ' ' + time)) return read;
    }
  }
  return ReadOwnTime(text, formats);
}

std::optional<SYSTEMTIME> ReadOwnTime(std::string_view text, const LocaleFormats& formats) {
  for (const std::string& time : TimePictures(formats)) {
    if (const auto read = PictureReader(text, formats).Read(time)) return read;
  }
  return std::nullopt;
}

}  // namespace tidemark
