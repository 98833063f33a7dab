// The log files of a hive: whether they hold what the hive does not.
#pragma once

#include <cstdint>
#include <string_view>

namespace tidemark::hosted {

// Of a hive whose two sequence numbers are both `written`. A log that is older, empty or no log at
// all holds nothing new.
bool LogHoldsMore(std::string_view log, std::uint32_t written);

}  // namespace tidemark::hosted
