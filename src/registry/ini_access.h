// Values of profile files, as the start-up manager reads and writes them. Thin functions on the
// platform's profile calls; clsIni is the other way, with other limits.
#pragma once

#include <cstddef>
#include <string>

namespace tidemark {

// The text of a key, at most 126 characters of it. Empty when there is none, and for a text of
// exactly one character, on purpose: a caller gets nothing or at least two characters.
std::string ReadIniValue(const std::string& section, const std::string& key,
                         const std::string& file);

// Makes the file and the section if they are missing. False when that failed.
bool WriteIniValue(const std::string& section, const std::string& key, const std::string& value,
                   const std::string& file);

// The first `characters` of a key's text, which both ways read with; empty when there is none.
std::string ReadProfileText(const std::string& section, const std::string& key,
                            const std::string& file, std::size_t characters);

}  // namespace tidemark
