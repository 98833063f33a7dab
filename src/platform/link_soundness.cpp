#include "platform/link_soundness.h"

#include <algorithm>
#include <array>

#include "platform/link_format.h"

namespace tidemark {
namespace {

// The items fill the list but for the zero that ends it.
bool IsSoundItemList(const Bytes& list) {
  std::size_t offset = 0;
  while (list.Word(offset) != 0) {
    if (list.Word(offset) < 2 || !list.Has(offset, list.Word(offset))) return false;
    offset += list.Word(offset);
  }
  return list.Has(offset, 2);
}

// An offset of 0 is none.
bool IsSoundText(const Bytes& bytes, std::size_t offset) {
  return offset == 0 || bytes.From(offset).View().find('\0') != std::string_view::npos;
}

// The volume record, with a label.
bool IsSoundVolume(const Bytes& info, std::size_t offset) {
  constexpr std::size_t kSmallest = 0x10;
  const Bytes volume = info.Part(offset, info.Long(offset));
  return volume.size() > kSmallest && IsSoundText(volume, volume.Long(0x0C));
}

// The network record, with the names of the share and of the device.
bool IsSoundNetwork(const Bytes& info, std::size_t offset) {
  constexpr std::size_t kSmallest = 0x14;
  const Bytes network = info.Part(offset, info.Long(offset));
  return network.size() >= kSmallest && IsSoundText(network, network.Long(0x08)) &&
         IsSoundText(network, network.Long(0x0C));
}

bool IsSoundLinkInfo(const Bytes& info) {
  constexpr std::size_t kSmallest = 0x1C;
  constexpr std::uint32_t kHasLocalPath = 1;
  constexpr std::uint32_t kHasNetworkPath = 2;
  const std::uint32_t flags = info.Long(0x08);
  return info.size() >= kSmallest && info.Long(4) >= kSmallest && info.Long(4) <= info.size() &&
         ((flags & kHasLocalPath) == 0 || IsSoundVolume(info, info.Long(0x0C))) &&
         ((flags & kHasNetworkPath) == 0 || IsSoundNetwork(info, info.Long(0x14))) &&
         IsSoundText(info, info.Long(0x10)) && IsSoundText(info, info.Long(0x18));
}

}  // namespace

bool IsSoundLinkFile(std::string_view file) {
  const Bytes bytes(file);
  if (!HasLinkHeader(bytes)) return false;
  const std::uint32_t flags = bytes.Long(kFlagsOffset);
  std::size_t offset = kHeaderSize;
  if ((flags & kHasItemList) != 0) {
    const std::size_t size = bytes.Word(offset);
    if (!bytes.Has(offset, 2 + size) || !IsSoundItemList(bytes.Part(offset + 2, size)))
      return false;
    offset += 2 + size;
  }
  if ((flags & kHasLinkInfo) != 0) {
    const std::size_t size = bytes.Long(offset);
    if (!IsSoundLinkInfo(bytes.Part(offset, size))) return false;
    offset += size;
  }
  constexpr std::array kTexts = {kHasDescription, kHasRelativePath, kHasWorkingDirectory,
                                 kHasArguments, kHasIcon};
  const std::size_t width = (flags & kIsWide) != 0 ? 2 : 1;
  return std::all_of(kTexts.begin(), kTexts.end(), [&](LinkFlag flag) {
    if ((flags & flag) == 0) return true;
    const std::size_t size = 2 + width * bytes.Word(offset);
    const bool inside = bytes.Has(offset, size);
    offset += size;
    return inside;
  });
}

}  // namespace tidemark
