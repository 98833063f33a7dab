// The stored settings and counters of the program: texts, and numbers as decimal text.
#pragma once

#include <string>

#include "toolkit/controls.h"

namespace tidemark {

std::string Setting(const char* name, const char* default_text);
void SaveSetting(const char* name, const std::string& text);

// The leading number of a text, rounded, into a property of 16 bits: a text with no number gives 0,
// and a number that does not fit leaves the old one.
void TakeNumber(int& number, const std::string& text);
void TakeNumber(CheckBox& box, const std::string& text);

}  // namespace tidemark
