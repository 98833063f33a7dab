#include "platform/hosted/date_parser.h"

#include <chrono>
#include <span>
#include <string>
#include <vector>

#include "platform/hosted/pc_settings.h"
#include "platform/letter_case.h"
#include "platform/locale_texts.h"
#include "platform/unicode.h"

namespace tidemark::hosted {
namespace {

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsBlank(char c) { return c == ' ' || c == '\t'; }
constexpr bool IsSeparator(char c) { return c == '/' || c == '-' || c == '.' || c == ','; }

struct Number {
  unsigned value = 0;
  std::size_t digits = 0;

  bool IsYear() const { return digits >= 3 || value > 31; }
};

// From 1; 0 is none. A name is given in full or by its first three letters.
unsigned NameIndex(std::span<const std::string> names, std::string_view word) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string_view name = names[i];
    if (CompareIgnoringCase(name, word) == 0 ||
        CompareIgnoringCase(FirstCharacters(name, 3), word) == 0) {
      return static_cast<unsigned>(i) + 1;
    }
  }
  return 0;
}

class DateText {
 public:
  DateText(std::string_view text, const PcSettings& settings) : text_(text), settings_(settings) {
    // One that dates have too can't tell a time.
    const std::string separator = TimeSeparator();
    if (separator.size() == 1 && separator != DateSeparator()) time_separator_ = separator[0];
  }

  std::optional<SYSTEMTIME> Read(const SYSTEMTIME& now) {
    while (SkipBlanks()) {
      const char c = text_[position_];
      if (!(IsDigit(c) ? ReadNumber() : IsSeparator(c) ? ReadSeparator() : ReadWord())) {
        return std::nullopt;
      }
    }
    if (after_separator_) return std::nullopt;
    if (!numbers_.empty() || month_ != 0) return Date(now.wYear);
    if (!has_time_) return std::nullopt;
    return Made(1899, 12, 30);  // day 0 of the platform's dates
  }

 private:
  bool AtTimeSeparator() const {
    return position_ < text_.size() &&
           (text_[position_] == ':' || text_[position_] == time_separator_);
  }

  bool SkipBlanks() {
    while (position_ < text_.size() && IsBlank(text_[position_])) ++position_;
    return position_ < text_.size();
  }

  bool TakeNumber(Number& number) {
    number = {};
    for (; position_ < text_.size() && IsDigit(text_[position_]); ++position_) {
      if (++number.digits > 4) return false;
      number.value = number.value * 10 + static_cast<unsigned>(text_[position_] - '0');
    }
    return number.digits > 0;
  }

  std::string_view TakeWord() {
    const std::size_t start = position_;
    while (position_ < text_.size() && !IsDigit(text_[position_]) && !IsBlank(text_[position_]) &&
           !IsSeparator(text_[position_]) && text_[position_] != ':') {
      ++position_;
    }
    return text_.substr(start, position_ - start);
  }

  bool ReadNumber() {
    Number number;
    if (!TakeNumber(number)) return false;
    after_separator_ = false;
    if (AtTimeSeparator()) return ReadTime(number.value);
    if (ReadHalfOfDay(number.value)) return !std::exchange(has_time_, true);
    numbers_.push_back(number);
    return numbers_.size() <= 3;
  }

  bool ReadSeparator() {
    const bool first = numbers_.empty() && month_ == 0 && !after_day_name_;
    ++position_;
    return !first && !std::exchange(after_separator_, true);
  }

  bool ReadWord() {
    const std::string_view word = TakeWord();
    after_separator_ = false;
    if (word.empty()) return false;
    if (const unsigned month = NameIndex(settings_.month_names, word)) {
      return std::exchange(month_, month) == 0;
    }
    return NameIndex(settings_.day_names, word) != 0 && !std::exchange(after_day_name_, true);
  }

  bool ReadTime(unsigned hour) {
    hour_ = hour;
    unsigned* const parts[] = {&minute_, &second_};
    for (unsigned* const part : parts) {
      if (!AtTimeSeparator()) break;
      ++position_;
      Number number;
      if (!TakeNumber(number)) return false;
      *part = number.value;
    }
    ReadHalfOfDay(hour);
    return hour_ < 24 && minute_ < 60 && second_ < 60 && !std::exchange(has_time_, true);
  }

  // "AM" or "PM", if that is what comes next.
  bool ReadHalfOfDay(unsigned hour) {
    const std::size_t start = position_;
    SkipBlanks();
    const std::string half = UpperCase(TakeWord());
    if ((half != "AM" && half != "PM") || hour > 12) {
      position_ = start;
      return false;
    }
    hour_ = hour % 12 + (half == "PM" ? 12 : 0);
    return true;
  }

  std::optional<SYSTEMTIME> Date(unsigned this_year) const {
    const auto at = [this](std::size_t i) { return numbers_[i].value; };
    const auto year = [this](std::size_t i) {
      const auto [value, digits] = numbers_[i];
      return digits > 2 ? value : value < 50 ? 2000 + value : 1900 + value;
    };
    if (month_ != 0) {
      if (numbers_.size() == 1) {
        return numbers_[0].IsYear() ? Made(year(0), month_, 1) : Made(this_year, month_, at(0));
      }
      if (numbers_.size() != 2) return std::nullopt;
      return numbers_[0].IsYear() ? Made(year(0), month_, at(1)) : Made(year(1), month_, at(0));
    }
    if (numbers_.size() == 2) {
      if (numbers_[1].IsYear()) return Made(year(1), at(0), 1);
      return DayAndMonth(this_year, at(0), at(1));
    }
    if (numbers_.size() != 3) return std::nullopt;
    if (numbers_[0].IsYear()) {
      const auto date = Made(year(0), at(1), at(2));
      return date ? date : Made(year(0), at(2), at(1));
    }
    if (numbers_[2].digits <= 2 && settings_.short_date.starts_with('y')) {
      if (const auto date = Made(year(0), at(1), at(2))) return date;
    }
    return DayAndMonth(year(2), at(0), at(1));
  }

  // In the locale's order; where that gives no date, in the other.
  std::optional<SYSTEMTIME> DayAndMonth(unsigned year, unsigned first, unsigned second) const {
    if (settings_.short_date.find('d') < settings_.short_date.find('M')) std::swap(first, second);
    const auto date = Made(year, first, second);
    return date ? date : Made(year, second, first);
  }

  std::optional<SYSTEMTIME> Made(unsigned year, unsigned month, unsigned day) const {
    using namespace std::chrono;
    // The library keeps a month and a day in a byte.
    if (year < 100 || month > 12 || day > 31) return std::nullopt;
    const year_month_day date{std::chrono::year(static_cast<int>(year)), std::chrono::month(month),
                              std::chrono::day(day)};
    if (!date.ok()) return std::nullopt;
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    time.wDayOfWeek = static_cast<WORD>(weekday(sys_days(date)).c_encoding());
    time.wHour = static_cast<WORD>(hour_);
    time.wMinute = static_cast<WORD>(minute_);
    time.wSecond = static_cast<WORD>(second_);
    return time;
  }

  std::string_view text_;
  const PcSettings& settings_;
  char time_separator_ = ':';
  std::size_t position_ = 0;
  std::vector<Number> numbers_;
  unsigned month_ = 0;
  bool after_day_name_ = false;
  bool after_separator_ = false;
  bool has_time_ = false;
  unsigned hour_ = 0;
  unsigned minute_ = 0;
  unsigned second_ = 0;
};

}  // namespace

std::optional<SYSTEMTIME> ParseDateText(std::string_view text, const PcSettings& settings,
                                        const SYSTEMTIME& now) {
  return DateText(text, settings).Read(now);
}

}  // namespace tidemark::hosted
