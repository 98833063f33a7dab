#include "platform/file_type_text.h"

#include "platform/winapi.h"

namespace tidemark {

std::string FileTypeText(const std::string& path) {
  SHFILEINFOA info{};
  const DWORD_PTR told =
      SHGetFileInfoA(path.c_str(), 0, &info, static_cast<UINT>(sizeof info), SHGFI_TYPENAME);
  return told != 0 ? std::string(&info.szTypeName[0]) : std::string();
}

}  // namespace tidemark
