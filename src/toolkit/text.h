// The text of a control: it ends at its first NUL, as the platform's controls hold it, and copies
// share their characters, so that a list row is copied into another list for the price of a few
// counters. Used on the one user-interface thread only.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tidemark {

class Text {
 public:
  Text() = default;
  Text(std::string_view characters);  // NOLINT(google-explicit-constructor)
  Text(const std::string& characters) : Text(std::string_view(characters)) {}  // NOLINT
  Text(const char* characters) : Text(std::string_view(characters)) {}         // NOLINT
  Text(const Text& other) noexcept : block_(other.block_) { AddOwner(); }
  Text(Text&& other) noexcept : block_(other.block_) { other.block_ = nullptr; }
  Text& operator=(const Text& other) noexcept;
  Text& operator=(Text&& other) noexcept;
  ~Text() { DropOwner(); }

  std::string_view View() const;
  std::string String() const { return std::string(View()); }
  bool empty() const { return block_ == nullptr; }

  friend bool operator==(const Text& left, std::string_view right) { return left.View() == right; }
  friend bool operator==(const Text& left, const char* right) { return left.View() == right; }
  friend bool operator==(const Text& left, const std::string& right) {
    return left.View() == right;
  }
  friend bool operator==(const Text& left, const Text& right) {
    return left.block_ == right.block_ || left.View() == right.View();
  }

 private:
  struct Block {
    std::size_t owners;
    std::size_t size;
  };
  void AddOwner() noexcept {
    if (block_ != nullptr) ++block_->owners;
  }
  void DropOwner() noexcept;

  Block* block_ = nullptr;  // followed by the characters; none for an empty text
};

}  // namespace tidemark
