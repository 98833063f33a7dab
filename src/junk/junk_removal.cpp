// The six buttons under the result list. A removal sends one file after the other to the recycle
// bin and takes its row out of the list, whatever became of the file.
#include <algorithm>
#include <optional>
#include <string>

#include "junk/junk.h"
#include "platform/file_system_object.h"
#include "window/run.h"

namespace tidemark {
namespace {

enum Action { kTickAll, kClearAll, kInvert, kRemoveTicked, kRemoveAll, kLeave };

template <class NewTick>
void Tick(frmMain& window, NewTick&& new_tick) {
  for (int index = 1; index <= window.lvJunkFiles.Count(); ++index) {
    ListItem& row = *window.lvJunkFiles.Item(index);
    row.SetChecked(new_tick(row.Checked()));
  }
}

// The bar shows the position in the list, not how much was done; it stands still where every row
// goes. On purpose.
void Remove(frmMain& window, bool ticked_only) {
  const Run run(window);
  ListView& list = window.lvJunkFiles;
  ProgressBar& bar = window.PbarRemoveJunk;
  bar.SetVisible(true);
  bar.SetMax(std::max(list.Count(), 1));
  bar.SetValue(0);
  int position = 1;
  // A scan may fill the list anew at a yield: what it finds was never meant to go.
  const unsigned filling = list.TimesCleared();
  while (position <= list.Count() && list.TimesCleared() == filling) {
    bar.SetValue(position);
    const ListItem* row = list.Item(position);
    if (ticked_only && !row->Checked()) {
      ++position;
      continue;
    }
    std::string path = row->Caption().String();
    ProcedureDel(path);
    // The platform may give way while it works: the row can stand elsewhere by now, or be gone.
    if (list.TimesCleared() != filling) break;
    list.Remove(list.Item(position) == row ? position : list.IndexOf(row));
    window.front_end.DoEvents();
  }
  bar.SetVisible(false);
  bar.SetValue(0);
}

// Moved out of sight, not hidden.
void Leave(frmMain& window) {
  Bounds place = window.picJunkScan.Place();
  place.left = 10000;
  window.picJunkScan.SetPlace(place);
  window.lvJunkFiles.Clear();
  constexpr int kTellAFriend = 3;
  window.lblOptions(kTellAFriend).Clicked();
}

// The option "ChkRecyclebin" has no control, so that it can't be asked. No answer means the recycle
// bin, never a deletion for good.
std::optional<int> RecycleOption() { return std::nullopt; }

}  // namespace

void cmdJunkFile_Click(frmMain& window, int index) {
  switch (index) {
    case kTickAll:
      return Tick(window, [](bool) { return true; });
    case kClearAll:
      return Tick(window, [](bool) { return false; });
    case kInvert:
      return Tick(window, [](bool ticked) { return !ticked; });
    case kRemoveTicked:
      return Remove(window, true);
    case kRemoveAll:
      return Remove(window, false);
    case kLeave:
      return Leave(window);
    default:
      return;
  }
}

void ProcedureDel(std::string& path) {
  FileSystemObject::File file;
  const bool found = FileSystemObject().GetFile(path, file) == FileSystemObject::kNone;
  if (RecycleOption().value_or(1) == 1) {
    // What is sent to the bin from the bin is deleted for good.
    if (found && !IsOfRecycleBin(file.Path())) recycledelete(file.Path());
  } else if (found) {
    file.Delete(/*force=*/true);
  }
}

void recycledelete(const std::string& path) {
  // A list of one path: it ends with two NULs.
  const std::string paths = path + std::string(2, '\0');
  SHFILEOPSTRUCTA operation{};
  operation.wFunc = FO_DELETE;
  operation.pFrom = paths.c_str();
  operation.fFlags =
      FOF_ALLOWUNDO | FOF_WANTMAPPINGHANDLE | FOF_NOCONFIRMATION | FOF_SILENT | FOF_MULTIDESTFILES;
  SHFileOperationA(&operation);
  if (operation.hNameMappings != nullptr) SHFreeNameMappings(operation.hNameMappings);
}

}  // namespace tidemark
