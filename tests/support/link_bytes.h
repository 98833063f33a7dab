// Builds link files by hand, field by field, for tests of what reads and writes them. The numbers
// are those of the published Shell Link Binary File Format.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tidemark::link_bytes {

// A number of `size` bytes, little-endian.
inline std::string Number(std::uint32_t number, int size) {
  std::string bytes;
  for (int byte = 0; byte < size; ++byte) bytes += static_cast<char>(number >> 8 * byte & 0xFFU);
  return bytes;
}
inline std::string Word(std::size_t number) {
  return Number(static_cast<std::uint32_t>(number), 2);
}
inline std::string Long(std::size_t number) {
  return Number(static_cast<std::uint32_t>(number), 4);
}
inline std::string Zeros(std::size_t count) { return std::string(count, '\0'); }
inline std::string NarrowText(const std::string& text) { return text + '\0'; }
// ASCII as 16-bit characters, without a NUL.
inline std::string Wide(const std::string& text) {
  std::string bytes;
  for (const char c : text) bytes += {c, '\0'};
  return bytes;
}
inline std::string WideText(const std::string& text) { return Wide(text) + Zeros(2); }

inline std::string Header(std::uint32_t flags, std::uint32_t show_command = 1) {
  return Long(0x4C) + std::string("\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16) + Long(flags) +
         Zeros(36) + Long(show_command) + Zeros(12);
}

inline std::string Item(const std::string& contents) {
  return Word(contents.size() + 2) + contents;
}
inline std::string ItemList(const std::vector<std::string>& items) {
  std::string list;
  for (const std::string& item : items) list += Item(item);
  list += Word(0);
  return Word(list.size()) + list;
}
inline std::string RootItem() { return "\x1F\x50" + std::string(16, '\x20'); }
inline std::string DriveItem(const std::string& root) { return '\x2F' + root + Zeros(19); }
// A place of the network: a share (C3), a server (42) or something with no path.
inline std::string NetworkItem(char type, const std::string& location) {
  return std::string({type, '\1', '\0'}) + NarrowText(location) + NarrowText("Its provider");
}
// A file or a folder by its 8-bit name, and by its long name in a block of that version.
inline std::string FileItem(const std::string& name, const std::string& long_name = {},
                            std::size_t version = 3) {
  std::string item = std::string("\x32\0", 2) + Zeros(10) + NarrowText(name);
  if (long_name.empty()) return item;
  const std::size_t fixed = version == 3 ? 0x14 : 0x2E;
  std::string block = Word(version) + Long(0xBEEF0004) + Zeros(fixed - 8) + WideText(long_name) +
                      Word(item.size() + 2);
  return item + Word(block.size() + 2) + block;
}

// Link info with a local path, a network path or both, 8-bit; with `wide`, 16-bit ones too, which
// then are other paths.
inline std::string LinkInfo(const std::string& local, const std::string& share,
                            const std::string& suffix, const std::string& wide = {},
                            const std::string& device = {}) {
  const std::size_t header = wide.empty() ? 0x1C : 0x24;
  const std::string volume = Long(0x11) + Long(3) + Long(0) + Long(0x10) + Zeros(1);
  std::string network = Long(device.empty() ? 2 : 3) + Long(0x14) +
                        Long(device.empty() ? 0 : 0x14 + share.size() + 1) + Long(0x20000) +
                        NarrowText(share) + (device.empty() ? std::string() : NarrowText(device));
  network = Long(network.size() + 4) + network;
  const std::size_t local_at = header + volume.size();
  const std::size_t network_at = local_at + local.size() + 1;
  const std::size_t suffix_at = network_at + network.size();
  const std::size_t wide_at = suffix_at + suffix.size() + 1;
  std::string info = Long(header) + Long((local.empty() ? 0U : 1U) | (share.empty() ? 0U : 2U)) +
                     Long(header) + Long(local_at) + Long(network_at) + Long(suffix_at);
  if (!wide.empty()) info += Long(wide_at) + Long(wide_at + 2 * wide.size());
  info += volume + NarrowText(local) + network + NarrowText(suffix);
  if (!wide.empty()) info += WideText(wide);
  return Long(info.size() + 4) + info;
}

inline std::string EnvironmentBlock(const std::string& narrow, const std::string& wide) {
  std::string block = Long(0x314) + Long(0xA0000001) + narrow + Zeros(260 - narrow.size());
  block += Wide(wide);
  return block + Zeros(0x314 - block.size());
}

inline std::string String8(const std::string& text) { return Word(text.size()) + text; }
inline std::string String16(const std::string& text) { return Word(text.size()) + Wide(text); }

}  // namespace tidemark::link_bytes
