// Whether a shell link file keeps within itself. Shells differ in what they make of one that does
// not, and Wine's follows its sizes and offsets wherever they lead.
#pragma once

#include <string_view>

namespace tidemark {

// True when header, item list, link info and texts end inside the file, and every offset of link
// info that a reader follows leads to something inside that ends there.
bool IsSoundLinkFile(std::string_view bytes);

}  // namespace tidemark
