// Writing a shell link file ([MS-SHLLINK], sections 2.1, 2.3 and 2.4).
#include "platform/hosted/link_writer.h"

#include <algorithm>
#include <bit>

#include "platform/code_page.h"
#include "platform/link_format.h"
#include "platform/unicode.h"

namespace tidemark::hosted {
namespace {

void AddWord(std::string& bytes, std::uint32_t number) {
  bytes += static_cast<char>(number & 0xFFU);
  bytes += static_cast<char>(number >> 8U & 0xFFU);
}

void AddLong(std::string& bytes, std::uint32_t number) {
  AddWord(bytes, number & 0xFFFFU);
  AddWord(bytes, number >> 16U);
}

std::string NarrowText(const std::string& text) { return ToSystemCodePage(text) + '\0'; }
std::string WideText(const std::string& text) { return Utf16FromUtf8(text) + std::string(2, '\0'); }

constexpr std::uint32_t kInfoHeader = 0x24;  // with the offsets of the wide texts

// A fixed drive without serial number and label.
std::string VolumeRecord() {
  constexpr std::uint32_t kSize = 0x11;
  constexpr std::uint32_t kFixedDrive = 3;
  std::string record;
  for (const std::uint32_t number : {kSize, kFixedDrive, 0U, kSize - 1}) AddLong(record, number);
  return record + '\0';
}

std::string NetworkRecord(const std::string& share) {
  constexpr std::uint32_t kRecordHeader = 0x1C;  // with the offsets of the wide texts
  constexpr std::uint32_t kValidProvider = 2;
  constexpr std::uint32_t kLanManager = 0x00020000;
  const std::string narrow = NarrowText(share);
  const std::string wide = WideText(share);
  const auto wide_offset = static_cast<std::uint32_t>(kRecordHeader + narrow.size());
  std::string record;
  for (const std::uint32_t number :
       {static_cast<std::uint32_t>(wide_offset + wide.size()), kValidProvider, kRecordHeader, 0U,
        kLanManager, wide_offset, 0U}) {
    AddLong(record, number);
  }
  return record + narrow + wide;
}

std::string LocalInfo(const std::string& path) {
  const std::string volume = VolumeRecord();
  const std::string narrow = NarrowText(path);
  const std::string wide = WideText(path);
  const auto path_offset = static_cast<std::uint32_t>(kInfoHeader + volume.size());
  const auto suffix_offset = static_cast<std::uint32_t>(path_offset + narrow.size());
  const std::uint32_t wide_offset = suffix_offset + 1;
  const auto wide_suffix_offset = static_cast<std::uint32_t>(wide_offset + wide.size());
  constexpr std::uint32_t kLocal = 1;
  std::string info;
  for (const std::uint32_t number :
       {wide_suffix_offset + 2, kInfoHeader, kLocal, kInfoHeader, path_offset, 0U, suffix_offset,
        wide_offset, wide_suffix_offset}) {
    AddLong(info, number);
  }
  return info + volume + narrow + '\0' + wide + std::string(2, '\0');
}

std::string NetworkInfo(const std::string& share, const std::string& suffix) {
  const std::string network = NetworkRecord(share);
  const std::string narrow = NarrowText(suffix);
  const std::string wide = WideText(suffix);
  const auto suffix_offset = static_cast<std::uint32_t>(kInfoHeader + network.size());
  const auto wide_offset = static_cast<std::uint32_t>(suffix_offset + narrow.size());
  constexpr std::uint32_t kNetwork = 2;
  std::string info;
  for (const std::uint32_t number :
       {static_cast<std::uint32_t>(wide_offset + wide.size()), kInfoHeader, kNetwork, 0U, 0U,
        kInfoHeader, suffix_offset, 0U, wide_offset}) {
    AddLong(info, number);
  }
  return info + network + narrow + wide;
}

// A share is the first two names of a network path.
std::string LinkInfo(const LinkFile& link) {
  if (!link.local_path.empty()) return LocalInfo(link.local_path);
  if (link.network_path.empty()) return {};
  const auto server_end = link.network_path.find('\\', 2);
  const auto share_end = std::min(
      link.network_path.size(),
      server_end == std::string::npos ? server_end : link.network_path.find('\\', server_end + 1));
  const std::string suffix = share_end < link.network_path.size()
                                 ? link.network_path.substr(share_end + 1)
                                 : std::string();
  return NetworkInfo(link.network_path.substr(0, share_end), suffix);
}

void AddString(std::string& bytes, std::uint32_t& flags, LinkFlag flag, const std::string& text) {
  if (text.empty()) return;
  constexpr std::size_t kLongest = 0xFFFE;
  const std::string wide = Utf16FromUtf8(text).substr(0, kLongest);
  flags |= flag;
  AddWord(bytes, static_cast<std::uint32_t>(wide.size() / 2));
  bytes += wide;
}

}  // namespace

std::string FormatLinkFile(const LinkFile& link) {
  std::uint32_t flags = kIsWide;
  const std::string info = LinkInfo(link);
  if (!info.empty()) flags |= kHasLinkInfo;
  std::string strings;
  AddString(strings, flags, kHasDescription, link.description);
  AddString(strings, flags, kHasRelativePath, link.relative_path);
  AddString(strings, flags, kHasWorkingDirectory, link.working_directory);
  AddString(strings, flags, kHasArguments, link.arguments);
  AddString(strings, flags, kHasIcon, link.icon_file);

  std::string bytes;
  AddLong(bytes, kHeaderSize);
  bytes += kLinkClass;
  AddLong(bytes, flags);
  std::string middle = link.header_middle;
  middle.resize(kMiddleSize);
  bytes += middle;
  AddLong(bytes, std::bit_cast<std::uint32_t>(link.icon_index));
  AddLong(bytes, std::bit_cast<std::uint32_t>(link.show_command));
  AddWord(bytes, link.hot_key);
  bytes.resize(kHeaderSize);
  bytes += info;
  bytes += strings;
  AddLong(bytes, 0);
  return bytes;
}

}  // namespace tidemark::hosted
