#include "desktop/win32/folder_dialog.h"

#include <memory>

#include "platform/windows/com.h"
#include "platform/windows/wide_text.h"
// After the platform's own header.
#include <shobjidl.h>

namespace tidemark {
namespace {

struct TaskMemoryFree {
  void operator()(void* memory) const { CoTaskMemFree(memory); }
};
template <class Type>
using TaskMemory = std::unique_ptr<Type, TaskMemoryFree>;

std::string PathOf(IShellItem& item) {
  wchar_t* name = nullptr;
  if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &name))) return {};
  const TaskMemory<wchar_t> path(name);
  return Narrow(path.get());
}

std::string Ask(IFileOpenDialog& dialog, HWND owner, std::string_view title) {
  FILEOPENDIALOGOPTIONS options = 0;
  dialog.GetOptions(&options);
  dialog.SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM);
  dialog.SetTitle(Wide(title).c_str());
  IShellItem* chosen = nullptr;
  if (FAILED(dialog.Show(owner)) || FAILED(dialog.GetResult(&chosen))) return {};
  const ComPointer<IShellItem> item(chosen);
  return PathOf(*item);
}

std::string AskInTree(HWND owner, std::string_view title) {
  const std::string title_text(title);
  BROWSEINFOA browse{};
  browse.hwndOwner = owner;
  browse.lpszTitle = title_text.c_str();
  const TaskMemory<ITEMIDLIST> chosen(SHBrowseForFolderA(&browse));

  std::string path(512, ' ');
  if (!chosen || !SHGetPathFromIDListA(chosen.get(), path.data())) return {};
  return path.substr(0, path.find('\0'));
}

}  // namespace

std::string AskForFolder(HWND owner, std::string_view title) {
  const ComApartment apartment;
  const auto dialog = MakeComObject<IFileOpenDialog>(CLSID_FileOpenDialog, IID_IFileOpenDialog);
  return dialog ? Ask(*dialog, owner, title) : AskInTree(owner, title);
}

}  // namespace tidemark
