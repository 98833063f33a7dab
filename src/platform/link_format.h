// What those who handle the bytes of a shell link file share: numbers of the Shell Link Binary File
// Format ([MS-SHLLINK], section 2.1), and bytes with their bounds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tidemark {

inline constexpr std::size_t kHeaderSize = 0x4C;
// {00021401-0000-0000-C000-000000000046}
inline constexpr std::string_view kLinkClass{
    "\x01\x14\x02\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x46", 16};

inline constexpr std::size_t kFlagsOffset = 0x14;
inline constexpr std::size_t kMiddleOffset = 0x18;
inline constexpr std::size_t kMiddleSize = 0x20;
inline constexpr std::size_t kIconIndexOffset = 0x38;
inline constexpr std::size_t kShowCommandOffset = 0x3C;
inline constexpr std::size_t kHotKeyOffset = 0x40;

enum LinkFlag : std::uint32_t {
  kHasItemList = 1U << 0U,
  kHasLinkInfo = 1U << 1U,
  kHasDescription = 1U << 2U,
  kHasRelativePath = 1U << 3U,
  kHasWorkingDirectory = 1U << 4U,
  kHasArguments = 1U << 5U,
  kHasIcon = 1U << 6U,
  kIsWide = 1U << 7U,
  kForceNoLinkInfo = 1U << 8U,
  kHasAdvertisedTarget = 1U << 12U,
};

// What lies outside reads as 0, or as no bytes.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

  std::size_t size() const { return bytes_.size(); }
  std::string_view View() const { return bytes_; }
  bool Has(std::size_t offset, std::size_t count) const {
    return offset <= bytes_.size() && count <= bytes_.size() - offset;
  }
  std::uint16_t Word(std::size_t offset) const {
    return static_cast<std::uint16_t>(Number(offset, 2));
  }
  std::uint32_t Long(std::size_t offset) const { return Number(offset, 4); }
  Bytes Part(std::size_t offset, std::size_t count) const {
    return Bytes(Has(offset, count) ? bytes_.substr(offset, count) : std::string_view());
  }
  Bytes From(std::size_t offset) const {
    return Bytes(offset < bytes_.size() ? bytes_.substr(offset) : std::string_view());
  }

 private:
  std::uint32_t Number(std::size_t offset, std::size_t count) const {
    std::uint32_t number = 0;
    for (std::size_t index = 0; index < count && Has(offset, count); ++index) {
      number |= std::uint32_t{static_cast<unsigned char>(bytes_[offset + index])} << (8 * index);
    }
    return number;
  }
  std::string_view bytes_;
};

// The header of a link, and nothing said of what follows it.
inline bool HasLinkHeader(const Bytes& bytes) {
  return bytes.Has(0, kHeaderSize) && bytes.Long(0) == kHeaderSize &&
         bytes.Part(4, kLinkClass.size()).View() == kLinkClass;
}

}  // namespace tidemark
