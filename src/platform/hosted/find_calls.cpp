// The file search of winapi.h, and holding a name against patterns.
#include <string_view>

#include "platform/hosted/file_search.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/name_pattern.h"
#include "platform/hosted/registry_editor.h"
#include "platform/winapi.h"

namespace {

tidemark::hosted::FileSearches& Searches() {
  tidemark::hosted::HostedPc& pc = tidemark::hosted::HostedPc::Current();
  pc.editor().CatchUp();
  return pc.searches();
}

BOOL Answer(LONG status) {
  if (status != ERROR_SUCCESS) SetLastError(static_cast<DWORD>(status));
  return status == ERROR_SUCCESS ? TRUE : FALSE;
}

}  // namespace

HANDLE FindFirstFileA(LPCSTR pattern, WIN32_FIND_DATAA* found) {
  HANDLE search = INVALID_HANDLE_VALUE;
  const std::string_view text = pattern == nullptr ? std::string_view() : pattern;
  Answer(Searches().Start(text, search, *found));
  return search;
}

BOOL FindNextFileA(HANDLE search, WIN32_FIND_DATAA* found) {
  return Answer(Searches().Next(search, *found));
}

BOOL FindClose(HANDLE search) { return Answer(Searches().Close(search)); }

BOOL PathMatchSpecA(LPCSTR name, LPCSTR pattern) {
  if (name == nullptr || pattern == nullptr) return FALSE;
  return tidemark::hosted::FitsPatternList(name, pattern) ? TRUE : FALSE;
}
