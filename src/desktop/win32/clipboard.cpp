#include "desktop/win32/clipboard.h"

#include <algorithm>

#include "platform/unique_handle.h"
#include "platform/windows/wide_text.h"

namespace tidemark {
namespace {

struct GlobalMemoryPolicy {
  using Handle = HGLOBAL;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { GlobalFree(handle); }
};
using GlobalMemory = UniqueHandle<GlobalMemoryPolicy>;

GlobalMemory Filled(const std::wstring& text) {
  GlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t)));
  if (!memory) return memory;
  if (void* place = GlobalLock(memory.Get())) {
    std::copy_n(text.c_str(), text.size() + 1, static_cast<wchar_t*>(place));
    GlobalUnlock(memory.Get());
  }
  return memory;
}

}  // namespace

void CopyToClipboard(HWND owner, std::string_view text) {
  GlobalMemory memory = Filled(Wide(text));
  if (!memory || OpenClipboard(owner) == FALSE) return;
  EmptyClipboard();
  // What was taken over belongs to the clipboard.
  if (SetClipboardData(CF_UNICODETEXT, memory.Get()) != nullptr) (void)memory.Release();
  CloseClipboard();
}

}  // namespace tidemark
