// One found file: whether it is listed, and what its row says.
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "helpers/system_helpers.h"
#include "helpers/text_helpers.h"
#include "junk/junk.h"
#include "platform/file_system_object.h"
#include "platform/locale_texts.h"

namespace tidemark {
namespace {

// Columns of lvJunkFiles behind the path.
enum JunkColumn { kSize = 1, kType, kCreated, kModified, kLetters };

struct AttributeLetter {
  DWORD attribute;
  char letter;
};
constexpr DWORD kAlias = 64;
constexpr std::array<AttributeLetter, 5> kAttributeLetters = {{
    {FILE_ATTRIBUTE_HIDDEN, 'H'},
    {kAlias, 'L'},
    {FILE_ATTRIBUTE_READONLY, 'R'},
    {FILE_ATTRIBUTE_ARCHIVE, 'A'},
    {FILE_ATTRIBUTE_SYSTEM, 'S'},
}};

// A column that can't be read keeps what it has.
void SetDate(ListItem& row, int column, const std::optional<SYSTEMTIME>& date) {
  if (date) row.SetSubItem(column, DateTimeText(*date));
}

std::uint64_t SizeOf(const ListItem& row) {
  return static_cast<std::uint64_t>(LeadingNumber(row.SubItem(kSize).View()));
}

void TellTickedFiles(frmMain& window) {
  window.lblJunkTicked.SetCaption("Ticked : " + std::to_string(window.JunkTickedFiles) + ", " +
                                  SizeText(window.JunkTickedBytes));
}

std::size_t HashOfPath(const ListItem& row) {
  return std::hash<std::string_view>()(row.Caption().View());
}

// The rows by path since the list was cleared last. A row that is taken out stays in memory.
auto& RowsByPath(frmMain& window) {
  if (window.JunkRowsFilling != window.lvJunkFiles.TimesCleared()) {
    window.JunkRowsFilling = window.lvJunkFiles.TimesCleared();
    window.JunkRowsByPath.clear();
  }
  return window.JunkRowsByPath;
}

}  // namespace

void IdentifyFiles1(frmMain& window, const std::string& path) {
  FileSystemObject::File file;
  if (FileSystemObject().GetFile(path, file) != FileSystemObject::kNone) return;
  const std::optional<DWORD> attributes = file.Attributes();
  if (!attributes || IsProtectedFile(*attributes)) return;
  window.front_end.DoEvents();
  ListItem* row = window.lvJunkFiles.Add({}, file.Path());
  if (const auto size = file.Size()) row->SetSubItem(kSize, std::to_string(*size));
  row->SetSubItem(kType, file.Type());
  row->SetSubItem(kCreated, "Unspecified");
  SetDate(*row, kCreated, file.DateCreated());
  SetDate(*row, kModified, file.DateLastModified());
  row->SetSubItem(kLetters, AttributeLetters(*attributes));
  row->SetChecked(true);
  window.lvJunkFiles.PutInOrder(row);
  RowsByPath(window).emplace(HashOfPath(*row), row);
  window.front_end.DoEvents();
}

bool IsProtectedFile(DWORD attributes) {
  return (attributes & (FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_READONLY)) != 0;
}

std::string AttributeLetters(DWORD attributes) {
  std::string letters;
  for (const AttributeLetter& one : kAttributeLetters) {
    if ((attributes & one.attribute) != 0) letters += one.letter;
  }
  return letters;
}

void lvJunkFiles_ItemCheck(frmMain& window, const ListItem& row) {
  const auto [first, last] = RowsByPath(window).equal_range(HashOfPath(row));
  for (auto other = first; other != last; ++other) {
    if (other->second->Caption() == row.Caption()) other->second->SetChecked(row.Checked());
  }
  if (window.JunkScanRunning) return;  // it tells the sum at its end
  // Not summed anew: a range may have thousands.
  if (row.Checked()) {
    ++window.JunkTickedFiles;
    window.JunkTickedBytes += SizeOf(row);
  } else {
    --window.JunkTickedFiles;
    window.JunkTickedBytes -= SizeOf(row);
  }
  TellTickedFiles(window);
}

void ShowTickedFiles(frmMain& window) {
  std::unordered_set<std::string_view> files;
  window.JunkTickedBytes = 0;
  for (int index = 1; index <= window.lvJunkFiles.Count(); ++index) {
    const ListItem& row = *window.lvJunkFiles.Item(index);
    if (!row.Checked() || !files.insert(row.Caption().View()).second) continue;
    window.JunkTickedBytes += SizeOf(row);
  }
  window.JunkTickedFiles = files.size();
  TellTickedFiles(window);
}

void ClearTwinsOfClearedRows(frmMain& window) {
  std::unordered_set<std::string_view> cleared;
  for (int index = 1; index <= window.lvJunkFiles.Count(); ++index) {
    const ListItem& row = *window.lvJunkFiles.Item(index);
    if (!row.Checked()) cleared.insert(row.Caption().View());
  }
  for (int index = 1; index <= window.lvJunkFiles.Count() && !cleared.empty(); ++index) {
    ListItem& row = *window.lvJunkFiles.Item(index);
    if (cleared.contains(row.Caption().View())) row.SetChecked(false);
  }
}

void lvJunkFiles_ColumnClick(frmMain& window, int column) {
  window.lvJunkFiles.SortInTurns(column);
}

void lvJunkFiles_DblClick(frmMain& window) {
  const ListItem* selected = window.lvJunkFiles.SelectedItem();
  if (selected != nullptr) ShowFileProperties(selected->Caption().String());
}

}  // namespace tidemark
