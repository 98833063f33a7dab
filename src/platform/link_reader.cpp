// Reading a shell link file ([MS-SHLLINK], sections 2.1 to 2.5).
#include <algorithm>
#include <bit>

#include "platform/code_page.h"
#include "platform/link_file.h"
#include "platform/link_format.h"
#include "platform/unicode.h"

namespace tidemark {
namespace {

// A PC whose code page is UTF-8 writes its 8-bit texts so.
std::string NarrowText(std::string_view bytes) {
  for (std::size_t position = 0; position < bytes.size();) {
    if (NextCharacter(bytes, position) == kNoCharacter) return FromSystemCodePage(bytes);
  }
  return std::string(bytes);
}

// Texts that end with a NUL, or with the bytes; empty for an offset of 0, which is none.
std::string TextAt(const Bytes& bytes, std::size_t offset) {
  if (offset == 0) return {};
  const std::string_view rest = bytes.From(offset).View();
  return NarrowText(rest.substr(0, rest.find('\0')));
}
std::string WideTextAt(const Bytes& bytes, std::size_t offset) {
  if (offset == 0) return {};
  const std::string_view rest = bytes.From(offset).View();
  std::size_t end = 0;
  while (end + 1 < rest.size() && (rest[end] != 0 || rest[end + 1] != 0)) end += 2;
  return Utf8FromUtf16(rest.substr(0, end));
}

// The 16-bit text of link info, where its header has room for one and it is inside, else the 8-bit
// one.
std::string EitherText(const Bytes& info, std::size_t narrow_field, std::size_t wide_field) {
  constexpr std::uint32_t kHeaderWithWideTexts = 0x24;
  const std::uint32_t wide = info.Long(4) >= kHeaderWithWideTexts ? info.Long(wide_field) : 0;
  return wide != 0 && info.Has(wide, 2) ? WideTextAt(info, wide)
                                        : TextAt(info, info.Long(narrow_field));
}

std::string Joined(std::string folder, const std::string& suffix) {
  if (folder.empty() || suffix.empty()) return folder;
  if (!folder.ends_with('\\')) folder += '\\';
  return folder + suffix;
}

void ReadLinkInfo(const Bytes& info, LinkFile& link) {
  constexpr std::uint32_t kHasLocalPath = 1;
  constexpr std::uint32_t kHasNetworkPath = 2;
  const std::uint32_t flags = info.Long(0x08);
  const std::string suffix = EitherText(info, 0x18, 0x20);
  if ((flags & kHasLocalPath) != 0) {
    link.local_path = Joined(EitherText(info, 0x10, 0x1C), suffix);
  }
  if ((flags & kHasNetworkPath) != 0) {
    const std::uint32_t offset = info.Long(0x14);
    const Bytes record = info.Part(offset, info.Long(offset));
    constexpr std::uint32_t kNetNameOfWideRecord = 0x14;
    std::string share;
    if (record.Long(0x08) > kNetNameOfWideRecord) share = WideTextAt(record, record.Long(0x14));
    if (share.empty()) share = TextAt(record, record.Long(0x08));
    constexpr std::uint32_t kHasDevice = 1;
    if (share.empty() && (record.Long(0x04) & kHasDevice) != 0) {
      share = TextAt(record, record.Long(0x0C));
    }
    link.network_path = Joined(std::move(share), suffix);
  }
}

// Where the long name stands in the block that newer systems add behind the short name of a file's
// item; 0 for a version that is not known.
std::size_t LongNameOffset(std::uint16_t version) {
  switch (version) {
    case 3:
      return 0x14;
    case 7:
      return 0x26;
    case 8:
      return 0x2A;
    case 9:
      return 0x2E;
    default:
      return 0;
  }
}

// Empty when there is a long name that can't be read, and the short one ("PROGRA~1") is made of it.
std::string FileItemName(const Bytes& item) {
  constexpr std::size_t kName = 0x0E;
  constexpr unsigned kWideName = 0x04;
  constexpr std::uint32_t kFileBlock = 0xBEEF0004;
  const Bytes tail = item.Part(item.size() - 2, 2);
  const Bytes block = item.Part(tail.Word(0), item.Word(tail.Word(0)));
  const bool has_block = tail.Word(0) > kName && block.Long(4) == kFileBlock;
  if (has_block) {
    if (std::string name = WideTextAt(block, LongNameOffset(block.Word(2))); !name.empty()) {
      return name;
    }
  }
  std::string name =
      (item.Word(2) & kWideName) != 0 ? WideTextAt(item, kName) : TextAt(item, kName);
  return has_block && name.find('~') != std::string::npos ? std::string() : name;
}

// The items that make a path: a drive or a share, then folders and files. Any other item makes the
// list one that only the shell's own folders understand.
std::string ItemListPath(const Bytes& list) {
  constexpr unsigned kKind = 0x70;
  constexpr unsigned kComputer = 0x10;
  constexpr unsigned kDrive = 0x20;
  constexpr unsigned kFile = 0x30;
  constexpr unsigned kNetwork = 0x40;
  constexpr std::size_t kDriveSize = 3;
  std::string path;
  bool in_network = true;  // still: no drive and no file has come
  for (std::size_t offset = 0; list.Word(offset) >= 3; offset += list.Word(offset)) {
    const Bytes item = list.Part(offset, list.Word(offset));
    const unsigned kind = item.Word(2) & kKind;
    if (kind == kComputer && path.empty()) continue;
    if (kind == kNetwork && in_network) {
      // From the whole network to a share, each with its whole path; only servers and shares have
      // one.
      constexpr std::size_t kLocation = 5;
      if (std::string place = TextAt(item, kLocation); place.starts_with("\\\\")) path = place;
      continue;
    }
    in_network = false;
    std::string name;
    if (kind == kDrive && path.empty()) {
      name = TextAt(item, 3).substr(0, kDriveSize);
      if (!name.ends_with(":\\")) return {};
    } else if (kind == kFile && !path.empty()) {
      name = FileItemName(item);
    }
    if (name.empty()) return {};
    path = path.empty() ? name : Joined(path, name);
  }
  return path;
}

class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  std::optional<LinkFile> Read() {
    if (!ReadHeader() || !SkipItemList() || !SkipLinkInfo() || !ReadStrings()) return std::nullopt;
    ReadExtraBlocks();
    return std::move(link_);
  }

 private:
  bool Flag(std::uint32_t flag) const { return (flags_ & flag) != 0; }

  bool ReadHeader() {
    if (!HasLinkHeader(bytes_)) return false;
    flags_ = bytes_.Long(kFlagsOffset);
    link_.advertised = Flag(kHasAdvertisedTarget);
    link_.header_middle = bytes_.Part(kMiddleOffset, kMiddleSize).View();
    link_.icon_index = std::bit_cast<std::int32_t>(bytes_.Long(kIconIndexOffset));
    link_.show_command = std::bit_cast<std::int32_t>(bytes_.Long(kShowCommandOffset));
    link_.hot_key = bytes_.Word(kHotKeyOffset);
    offset_ = kHeaderSize;
    return true;
  }

  bool SkipItemList() {
    if (!Flag(kHasItemList)) return true;
    const std::size_t size = bytes_.Word(offset_);
    if (!bytes_.Has(offset_, 2 + size)) return false;
    link_.item_list_path = ItemListPath(bytes_.Part(offset_ + 2, size));
    offset_ += 2 + size;
    return true;
  }

  bool SkipLinkInfo() {
    if (!Flag(kHasLinkInfo)) return true;
    const std::size_t size = bytes_.Long(offset_);
    if (size < 4 || !bytes_.Has(offset_, size)) return false;
    if (!Flag(kForceNoLinkInfo)) ReadLinkInfo(bytes_.Part(offset_, size), link_);
    offset_ += size;
    return true;
  }

  bool ReadString(std::uint32_t flag, std::string& text) {
    if (!Flag(flag)) return true;
    const std::size_t width = Flag(kIsWide) ? 2 : 1;
    const std::size_t size = bytes_.Word(offset_) * width;
    if (!bytes_.Has(offset_, 2 + size)) return false;
    const std::string_view raw = bytes_.Part(offset_ + 2, size).View();
    text = width == 2 ? Utf8FromUtf16(raw) : NarrowText(raw);
    text.resize(std::min(text.size(), text.find('\0')));
    offset_ += 2 + size;
    return true;
  }

  bool ReadStrings() {
    return ReadString(kHasDescription, link_.description) &&
           ReadString(kHasRelativePath, link_.relative_path) &&
           ReadString(kHasWorkingDirectory, link_.working_directory) &&
           ReadString(kHasArguments, link_.arguments) && ReadString(kHasIcon, link_.icon_file);
  }

  // A damaged block ends the blocks: they add nothing that a link can't do without.
  void ReadExtraBlocks() {
    constexpr std::size_t kSmallest = 8;
    constexpr std::uint32_t kEnvironmentBlock = 0xA0000001;
    while (bytes_.Has(offset_, kSmallest)) {
      const Bytes block = bytes_.Part(offset_, bytes_.Long(offset_));
      if (block.size() < kSmallest) return;
      if (block.Long(4) == kEnvironmentBlock) {
        constexpr std::size_t kNarrow = 8;
        constexpr std::size_t kWide = kNarrow + 260;
        link_.environment_path = WideTextAt(block, kWide);
        if (link_.environment_path.empty()) link_.environment_path = TextAt(block, kNarrow);
      }
      offset_ += block.size();
    }
  }

  Bytes bytes_;
  std::uint32_t flags_ = 0;
  std::size_t offset_ = 0;
  LinkFile link_;
};

}  // namespace

std::optional<LinkFile> ParseLinkFile(std::string_view bytes) { return Reader(bytes).Read(); }

}  // namespace tidemark
