// What has come in, line by line: the part that the consoles of all systems have in common.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "desktop/terminal/script/console.h"

namespace tidemark {

class LineBuffer {
 public:
  void Append(std::string_view text) { pending_ += text; }
  // Nothing more will come.
  void End() { ended_ = true; }

  // The next line; at the end what is left of one, then kEnd. No value: more has to be read first.
  std::optional<ConsoleInput> Take();

 private:
  ConsoleInput TakeLine(std::size_t end, std::size_t next);

  std::string pending_;
  bool ended_ = false;
};

}  // namespace tidemark
