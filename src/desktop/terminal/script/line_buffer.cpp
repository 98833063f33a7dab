#include "desktop/terminal/script/line_buffer.h"

namespace tidemark {

std::optional<ConsoleInput> LineBuffer::Take() {
  if (const std::size_t end = pending_.find('\n'); end != std::string::npos) {
    return TakeLine(end, end + 1);
  }
  if (!ended_) return std::nullopt;
  if (!pending_.empty()) return TakeLine(pending_.size(), pending_.size());
  return ConsoleInput{.kind = ConsoleInput::Kind::kEnd, .line = {}};
}

ConsoleInput LineBuffer::TakeLine(std::size_t end, std::size_t next) {
  ConsoleInput input{.kind = ConsoleInput::Kind::kLine, .line = pending_.substr(0, end)};
  pending_.erase(0, next);
  if (!input.line.empty() && input.line.back() == '\r') input.line.pop_back();
  return input;
}

}  // namespace tidemark
