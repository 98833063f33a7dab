// What a folder tells of the files in it, read from the host.
#pragma once

#include <sys/types.h>
#include <time.h>

#include <cstdint>

#include "platform/winapi.h"

namespace tidemark::hosted {

struct FileDetails {
  DWORD attributes = 0;
  FILETIME created{};  // the last change, where the host does not keep the time of making
  FILETIME accessed{};
  FILETIME written{};
  std::uint64_t size_bytes = 0;  // of a folder 0
};

// Reads the times and the size; the attributes are left as they are. `path` is relative to the
// host's folder. False when it is not there, or is neither file nor folder for the PC.
bool ReadHostDetails(int folder, const char* path, mode_t& mode, FileDetails& details);

// For the host's call that sets times; null is the time that it leaves as it is.
timespec HostTimeOf(const FILETIME* time);

// Fills in the platform's record.
inline void CopyDetails(const FileDetails& details, WIN32_FILE_ATTRIBUTE_DATA& record) {
  record.dwFileAttributes = details.attributes;
  record.ftCreationTime = details.created;
  record.ftLastAccessTime = details.accessed;
  record.ftLastWriteTime = details.written;
  record.nFileSizeHigh = static_cast<DWORD>(details.size_bytes >> 32U);
  record.nFileSizeLow = static_cast<DWORD>(details.size_bytes);
}

}  // namespace tidemark::hosted
