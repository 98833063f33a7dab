// Reads a person's date and time text, as the platform's VarDateFromStr does.
#pragma once

#include <optional>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark::hosted {

struct PcSettings;

// `now` gives the year where the text names none. See ParseUsualDate.
std::optional<SYSTEMTIME> ParseDateText(std::string_view text, const PcSettings& settings,
                                        const SYSTEMTIME& now);

}  // namespace tidemark::hosted
