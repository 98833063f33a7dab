#include "desktop/win32/folder_dialog.h"

#include <memory>

#include "platform/windows/com.h"

namespace tidemark {
namespace {

struct TaskMemoryFree {
  void operator()(void* memory) const { CoTaskMemFree(memory); }
};

}  // namespace

std::string AskForFolder(HWND owner, std::string_view title) {
  const ComApartment apartment;
  const std::string title_text(title);
  BROWSEINFOA browse{};
  browse.hwndOwner = owner;
  browse.lpszTitle = title_text.c_str();
  const std::unique_ptr<ITEMIDLIST, TaskMemoryFree> chosen(SHBrowseForFolderA(&browse));

  std::string path(512, ' ');
  if (!chosen || !SHGetPathFromIDListA(chosen.get(), path.data())) return {};
  return path.substr(0, path.find('\0'));
}

}  // namespace tidemark
