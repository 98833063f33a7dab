#include "helpers/text_helpers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace tidemark {
namespace {

// What a number too large or too small for a double counts as.
double OutOfRange(std::string_view text) {
  const std::size_t exponent = text.find_first_of("eE");
  if (exponent != std::string_view::npos &&
      text.substr(exponent).find('-') != std::string_view::npos) {
    return 0;
  }
  const double infinity = std::numeric_limits<double>::infinity();
  return text.starts_with('-') ? -infinity : infinity;
}

// The longest number at the start of the text, without blanks; its length goes to *length.
double ParseNumber(std::string_view text, std::size_t* length) {
  double number = 0;
  const bool plus = text.starts_with('+');
  const char* begin = text.data() + (plus ? 1 : 0);
  const char* end = text.data() + text.size();
  *length = 0;
  // from_chars also reads "inf" and "nan", and a second sign, which are no numbers here.
  const std::string_view rest(begin, static_cast<std::size_t>(end - begin));
  const std::size_t digits = rest.starts_with('-') && !plus ? 1 : 0;
  if (digits >= rest.size() ||
      (rest[digits] != '.' && (rest[digits] < '0' || rest[digits] > '9'))) {
    return 0;
  }
  const auto [stop, error] = std::from_chars(begin, end, number);
  if (error == std::errc::invalid_argument) return 0;
  *length = static_cast<std::size_t>(stop - text.data());
  if (error == std::errc::result_out_of_range) return OutOfRange({begin, stop});
  return number;
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string& StripNull(std::string& text) {
  const std::size_t end = text.find('\0');
  if (end != std::string::npos) text.resize(end);
  return text;
}

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  if (text.empty()) return pieces;
  std::size_t start = 0;
  for (std::size_t end = text.find(separator); end != std::string_view::npos;
       end = text.find(separator, start)) {
    pieces.emplace_back(text.substr(start, end - start));
    start = end + 1;
  }
  pieces.emplace_back(text.substr(start));
  return pieces;
}

std::string WithoutLastSeparator(std::string_view list) {
  list = TrimBlanks(list);
  return std::string(list.substr(0, list.empty() ? 0 : list.size() - 1));
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  std::size_t start = 0;
  while (!from.empty()) {
    const std::size_t found = text.find(from, start);
    if (found == std::string_view::npos) break;
    result.append(text, start, found - start).append(to);
    start = found + from.size();
  }
  return result.append(text.substr(start));
}

bool StartsWithLetterOf(std::string_view text, std::string_view capital_letters) {
  if (text.empty()) return true;
  const char first = text.front();
  const char capital = first >= 'a' && first <= 'z' ? static_cast<char>(first - 'a' + 'A') : first;
  return capital_letters.find(capital) != std::string_view::npos;
}

double LeadingNumber(std::string_view text) {
  std::size_t length = 0;
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  return first == std::string_view::npos ? 0 : ParseNumber(text.substr(first), &length);
}

std::optional<double> NumberOf(std::string_view text) {
  text = TrimBlanks(text);
  std::size_t length = 0;
  const double number = ParseNumber(text, &length);
  if (length == 0 || length != text.size()) return std::nullopt;
  return number;
}

std::optional<std::int32_t> RoundToLong(double number) {
  const double rounded = std::nearbyint(number);  // the default rounding mode is half to even
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(rounded);
}

std::string WholeNumberText(double number) {
  return std::to_string(RoundToLong(number).value_or(0));
}

std::string SizeText(std::uint64_t bytes) {
  constexpr std::uint64_t kStep = 1024;
  constexpr std::uint64_t kTenths = 10;
  if (bytes < kStep) return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
  std::uint64_t unit = kStep;
  const char* name = " KB";
  for (const char* larger : {" MB", " GB"}) {
    if (bytes / unit < kStep) break;
    unit *= kStep;
    name = larger;
  }
  const std::uint64_t whole = bytes / unit;
  if (whole >= kTenths || unit == kStep) return std::to_string(whole) + name;
  return std::to_string(whole) + "." + std::to_string(bytes % unit * kTenths / unit) + name;
}

}  // namespace tidemark
