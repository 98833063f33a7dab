// The columns of a finding, a row of lvInvalidLoc: its key is "K" and its number, its text the full
// key, or the link file's path.
#pragma once

namespace tidemark {

// Sub-items behind the text.
enum FindingColumn : int {
  kValueName = 1,
  kValueData = 2,
  kReason = 3,
  kValueType = 4,  // registry type as decimal text
  kSelected = 5,   // "1" when selected for repair, else "0"
  kTestCode = 6,   // code of the diagnostic test
};

}  // namespace tidemark
