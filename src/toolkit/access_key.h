// A caption as it is shown: "&" stands before its access key and is not shown, "&&" is an "&", and
// one at the end is nothing.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tidemark {

struct ShownCaption {
  std::string text;
  std::size_t key = 0;       // where the access key starts
  std::size_t key_size = 0;  // 0: no access key

  std::string Key() const { return text.substr(key, key_size); }
};
// Of several keys the first one counts.
ShownCaption ShowCaption(std::string_view caption);

// The text alone.
std::string WithoutAccessKey(std::string_view caption);

}  // namespace tidemark
