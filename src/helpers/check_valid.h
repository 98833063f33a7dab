// The judgement of a text from the registry: does it name something that exists on disk?
#pragma once

#include <string>

namespace tidemark {

// The text may be a plain path, a command line with arguments, a quoted path, a Rundll32 line, a
// path with environment variables, or a bare file name. It never fails, and it leans towards true:
// a text that can't be understood counts as valid, so that only what is surely gone is reported.
bool CheckValid(const std::string& text);

}  // namespace tidemark
