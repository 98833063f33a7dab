#include "registry/record_file.h"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cstdio>

#include "platform/winapi.h"

namespace tidemark {

std::string Checksum::Text() const {
  std::array<char, 17> text{};
  std::snprintf(text.data(), text.size(), "%016" PRIx64, sum_);
  return text.data();
}

std::string Checksum::Of(std::string_view bytes) {
  Checksum checksum;
  checksum.Add(bytes);
  return checksum.Text();
}

bool WriteBytes(HANDLE file, std::string_view bytes) {
  constexpr std::size_t kMost = 1U << 30;
  while (!bytes.empty()) {
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kMost));
    DWORD written = 0;
    if (WriteFile(file, bytes.data(), size, &written, nullptr) == FALSE || written != size) {
      return false;
    }
    bytes.remove_prefix(size);
  }
  return true;
}

bool RecordFile::Open() {
  WIN32_FILE_ATTRIBUTE_DATA found{};
  std::uint64_t size = 0;
  if (GetFileAttributesExA(path_.c_str(), GetFileExInfoStandard, &found) != FALSE) {
    size = std::uint64_t{found.nFileSizeHigh} << 32U | found.nFileSizeLow;
  }
  // One that was cut before its start was whole is none.
  const bool is_new = size < start_.size();
  file_.Reset(CreateFileA(path_.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                          nullptr, is_new ? CREATE_ALWAYS : OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                          nullptr));
  if (!file_) return false;
  if (is_new) return WriteBytes(file_.Get(), start_);
  const std::size_t unit = line_end_.size() / 2;
  const std::string padding((unit - size % unit) % unit, ' ');
  return WriteBytes(file_.Get(), padding + line_end_);
}

bool RecordFile::Append(std::string_view bytes) {
  if ((file_ || Open()) && WriteBytes(file_.Get(), bytes)) return true;
  Close();
  return false;
}

bool RecordFile::Flush() {
  if (file_ && FlushFileBuffers(file_.Get()) != FALSE) return true;
  Close();
  return false;
}

bool RecordFile::ReplaceStart(std::string_view start) {
  const UniqueFile file(CreateFileA(path_.c_str(), GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  return file && WriteBytes(file.Get(), start);
}

}  // namespace tidemark
