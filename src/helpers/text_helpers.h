// Small work on texts and numbers that several places of the program share. Texts are UTF-8.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tidemark {

// Without the blanks at both ends; only blanks, no tabs or line ends.
std::string_view TrimBlanks(std::string_view text);

// Cuts the text in front of its first NUL, if it has one, and returns it.
std::string& StripNull(std::string& text);

// The pieces between the separators; an empty text gives no piece at all.
std::vector<std::string> Split(std::string_view text, char separator);

// What a list whose pieces all end in a separator is stored as: without the blanks at its ends, and
// then without its last character.
std::string WithoutLastSeparator(std::string_view list);

// Every occurrence replaced, letter case counting; an empty `from` replaces nothing.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

// Whether a capital ASCII letter set holds the first character of the text, in capitals. An empty
// text is held by every set.
bool StartsWithLetterOf(std::string_view text, std::string_view capital_letters);

// The number with which the text starts, blanks passed over; 0 when it starts with none.
double LeadingNumber(std::string_view text);

// The number that the whole text is, blanks at its ends allowed; no value when it is none, and for
// the empty text.
std::optional<double> NumberOf(std::string_view text);

// Rounded half to even, as the platform's conversion to a 32-bit number does; no value out of
// range.
std::optional<std::int32_t> RoundToLong(double number);

// A size for a person: "812 bytes", "12 KB", "3.4 MB".
std::string SizeText(std::uint64_t bytes);

// Decimal text of a leading number rounded to 32 bits; out of range it is "0".
std::string WholeNumberText(double number);

}  // namespace tidemark
