// Links that are carried from one ground to the other: made by one, read by the other.
#pragma once

#include <string>
#include <vector>

namespace tidemark {

// "write FOLDER" makes a link of each case in a folder of the PC; "check FOLDER" reads them back
// and prints each field that is not as it was written. 0 when all went well.
int RunLinkTool(const std::vector<std::string>& arguments);

}  // namespace tidemark
