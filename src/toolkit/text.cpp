#include "toolkit/text.h"

#include <cstring>
#include <new>
#include <utility>

namespace tidemark {

Text::Text(std::string_view characters) {
  characters = characters.substr(0, characters.find('\0'));
  if (characters.empty()) return;
  void* memory = ::operator new(sizeof(Block) + characters.size());
  // Block counts its own owners, which the check does not know.
  block_ = new (memory) Block{1, characters.size()};  // NOLINT(cppcoreguidelines-owning-memory)
  std::memcpy(block_ + 1, characters.data(), characters.size());
}

Text& Text::operator=(const Text& other) noexcept {
  Text copy(other);
  std::swap(block_, copy.block_);
  return *this;
}

Text& Text::operator=(Text&& other) noexcept {
  std::swap(block_, other.block_);
  return *this;
}

std::string_view Text::View() const {
  if (block_ == nullptr) return {};
  return {reinterpret_cast<const char*>(block_ + 1), block_->size};
}

void Text::DropOwner() noexcept {
  if (block_ != nullptr && --block_->owners == 0) ::operator delete(block_);
}

}  // namespace tidemark
