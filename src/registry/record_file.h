// A file to which a record is written piece by piece, each on the disk before what it stands for is
// changed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/unique_handle.h"

namespace tidemark {

// Tells whether bytes are what they were (FNV-1a, 64 bits).
class Checksum {
 public:
  void Add(std::string_view bytes) {
    for (const char byte : bytes) {
      sum_ = (sum_ ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
  }
  std::string Text() const;  // 16 hexadecimal digits
  static std::string Of(std::string_view bytes);

 private:
  std::uint64_t sum_ = 0xCBF29CE484222325U;
};

class RecordFile {
 public:
  // `start` is what a new file begins with; `line_end` divides what is appended later from what
  // may have been cut before. Both are of units of line_end.size() / 2 bytes.
  RecordFile(std::string path, std::string start, std::string line_end)
      : path_(std::move(path)), start_(std::move(start)), line_end_(std::move(line_end)) {}

  // Opens, and makes, the file if need be. False when not all could be written; the file is then
  // closed, and goes on with a new line once there is room again.
  bool Append(std::string_view bytes);
  bool Flush();
  void Close() { file_.Reset(); }

  // Takes the place of what the file begins with; it has the same size.
  bool ReplaceStart(std::string_view start);

 private:
  bool Open();

  std::string path_;
  std::string start_;
  std::string line_end_;
  UniqueFile file_;
};

// All bytes, or false. One call of the platform takes at most a DWORD of them.
bool WriteBytes(HANDLE file, std::string_view bytes);

}  // namespace tidemark
