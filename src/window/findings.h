// What every diagnostic test does with the window: show where it is, and add its findings.
#pragma once

#include <string>
#include <string_view>

#include "window/frmMain.h"

namespace tidemark {

// The fields of a finding that its test knows.
struct NewFinding {
  std::string_view location;  // the full key, or the link file
  std::string_view value_name;
  std::string_view value_data;
  std::string_view reason;
  std::string_view value_type;  // decimal; empty for what is no registry value
};

// Adds a row to lvInvalidLoc for the test in work, selected for repair, and counts it. Yields. A
// scan that was overtaken adds nothing.
void AddFinding(frmMain& window, const NewFinding& finding);

// Shows "a\b" in the status label and yields.
void UpdStatus(frmMain& window, std::string_view a, std::string_view b);

}  // namespace tidemark
