#include "toolkit/access_key.h"

#include "platform/unicode.h"

namespace tidemark {

ShownCaption ShowCaption(std::string_view caption) {
  ShownCaption shown;
  for (std::size_t position = 0; position < caption.size();) {
    const bool is_mark = caption[position] == '&';
    if (is_mark && ++position == caption.size()) break;
    const std::size_t start = position;
    NextCharacter(caption, position);
    if (is_mark && caption[start] != '&' && shown.key_size == 0) {
      shown.key = shown.text.size();
      shown.key_size = position - start;
    }
    shown.text += caption.substr(start, position - start);
  }
  return shown;
}

std::string WithoutAccessKey(std::string_view caption) { return ShowCaption(caption).text; }

}  // namespace tidemark
