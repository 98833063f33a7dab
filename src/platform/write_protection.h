// Whether anything on this PC can be changed at all.
#pragma once

#include <string>

namespace tidemark {

// Why nothing can be, as one line for the person: a disk that is mounted read-only. Empty when it
// can.
std::string WhyNothingCanBeChanged();

}  // namespace tidemark
