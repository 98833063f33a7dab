// The editors of the junk cleaner's two tables. Every change goes to the list, from there to the
// registry, and is loaded again.
#include <string>
#include <string_view>

#include "helpers/text_helpers.h"
#include "junk/junk.h"
#include "junk/shipped_criteria.h"
#include "registry/stored_settings.h"

namespace tidemark {
namespace {

enum Edit { kAdd = 0, kEdit = 1, kRemove = 2, kRevert = 3 };

// What differs between the two tables: their list, and how they are stored and loaded again.
struct Editor {
  frmMain& window;
  ListView& list;
  void (*save)(frmMain& window);
  void (*load)(frmMain& window);
};

struct Texts {
  std::string entry;
  std::string description;
};

Texts Trimmed(const Texts& texts) {
  return {std::string(TrimBlanks(texts.entry)), std::string(TrimBlanks(texts.description))};
}

void Store(const Editor& editor) {
  editor.save(editor.window);
  editor.load(editor.window);
}

void ShowRow(const Editor& editor, int number) {
  if (ListItem* row = editor.list.Item(number)) {
    editor.list.Select(row);
    editor.list.EnsureVisible(row);
  }
}

void AddRow(const Editor& editor, const Texts& answers) {
  const Texts texts = Trimmed(answers);
  if (texts.entry.empty() || texts.description.empty()) return;
  const int number = editor.list.Count() + 1;
  ListItem* row = editor.list.Add({}, texts.entry);
  row->SetChecked(true);
  row->SetSubItem(1, texts.description);
  Store(editor);
  ShowRow(editor, number);
}

void ChangeRow(const Editor& editor, const Texts& answers, const char* question,
               const char* title) {
  ListItem* row = editor.list.SelectedItem();
  if (row == nullptr) return;
  const Texts texts = Trimmed(answers);
  if (texts.entry == TrimBlanks(row->Caption().View()) &&
      texts.description == TrimBlanks(row->SubItem(1).View())) {
    return;
  }
  if (!editor.window.front_end.AskYesNo(question, title)) return;
  row = editor.list.SelectedItem();
  if (row == nullptr) return;
  const int number = editor.list.IndexOf(row);
  row->SetCaption(texts.entry);
  row->SetSubItem(1, texts.description);
  Store(editor);
  ShowRow(editor, number);
}

void RemoveRow(const Editor& editor, const char* question, const char* title) {
  if (editor.list.SelectedItem() == nullptr) return;
  if (!editor.window.front_end.AskYesNo(question, title)) return;
  editor.list.Remove(editor.list.IndexOf(editor.list.SelectedItem()));
  Store(editor);
}

// Letter case counts, and an answer that is only a part of the list is refused too. On purpose; so
// a cancelled question is refused as well.
bool IsForbidden(const frmMain& window, const std::string& pattern) {
  constexpr std::string_view kNeverJunk = "*.*,*.exe,*.dll,*.bat,*.vxd,*.com,*.ini";
  if (kNeverJunk.find(pattern) == std::string_view::npos) return false;
  window.front_end.ShowMessage("This type of files are not junk files.", window.application.title,
                               MessageIcon::kCritical);
  return true;
}

void AddFileType(const Editor& editor) {
  FrontEnd& front_end = editor.window.front_end;
  const std::string& title = editor.window.application.title;
  const std::string pattern =
      front_end.InputBox("Enter the extension of the file you want to add to the list", title, "");
  if (IsForbidden(editor.window, pattern)) return;
  AddRow(editor,
         {pattern, front_end.InputBox("Enter the short description for the file", title, "")});
}

void EditFileType(const Editor& editor) {
  const ListItem* row = editor.list.SelectedItem();
  if (row == nullptr) return;
  FrontEnd& front_end = editor.window.front_end;
  const Texts old = {row->Caption().String(), row->SubItem(1).String()};
  constexpr const char* kPrompt = "Extension you wish to modify";
  const std::string pattern = front_end.InputBox(kPrompt, "Extension modification", old.entry);
  if (IsForbidden(editor.window, pattern)) return;
  // The same prompt for the description, on purpose.
  const std::string description =
      front_end.InputBox(kPrompt, "Description modification", old.description);
  ChangeRow(editor, {pattern, description},
            "Are you sure you want to edit the selected file type details in the list.This "
            "operation cannot be undone",
            "Confirm editing the selected file type");
}

void RevertFileTypes(frmMain& window) {
  if (!window.front_end.AskYesNo(
          "Are you sure you want to revert to Original Criteria?The Operation cannot be undone.",
          "Please Confirm")) {
    return;
  }
  SaveSetting("FileTypes", kShippedFileTypes.entries);
  SaveSetting("FileDesc", kShippedFileTypes.descriptions);
  SaveSetting("FileState", kShippedFileTypes.states);
  LoadFileTypes(window);
}

std::string PickFolder(frmMain& window, const std::string& start) {
  window.FolderPicker.SetText(start);
  window.FolderPicker.cmdBrowse_Click();
  return window.FolderPicker.Text().String();
}

// In the stored texts it would be two folders.
bool CanNotBeStored(const frmMain& window, const std::string& folder) {
  if (folder.find(';') == std::string::npos) return false;
  window.front_end.ShowMessage("A path with \";\" in it can't be kept in this list.",
                               window.application.title, MessageIcon::kCritical);
  return true;
}

void AddExcludeFolder(const Editor& editor) {
  const std::string folder = PickFolder(editor.window, "");
  if (CanNotBeStored(editor.window, folder)) return;
  AddRow(editor,
         {folder, editor.window.front_end.InputBox("Enter the short description for the folder",
                                                   editor.window.application.title, "")});
}

void EditExcludeFolder(const Editor& editor) {
  const ListItem* row = editor.list.SelectedItem();
  if (row == nullptr) return;
  const Texts old = {row->Caption().String(), row->SubItem(1).String()};
  const std::string folder = PickFolder(editor.window, old.entry);
  if (CanNotBeStored(editor.window, folder)) return;
  const std::string description = editor.window.front_end.InputBox(
      "Extension you wish to modify", "Description modification", old.description);
  ChangeRow(editor, {folder, description},
            "Are you sure you want to edit the selected folder details in the list.This operation "
            "cannot be undone",
            "Confirm editing the selected folder");
}

}  // namespace

void EditFileTypes(frmMain& window, int index) {
  const Editor editor{window, window.lvFileTypes, SaveFileTypes, LoadFileTypes};
  switch (index) {
    case kAdd:
      return AddFileType(editor);
    case kEdit:
      return EditFileType(editor);
    case kRemove:
      return RemoveRow(editor,
                       "Are u sure you want to remove the selected file type from the list.This "
                       "operation cannot be undone",
                       "Confirm deletion of file type");
    case kRevert:
      return RevertFileTypes(window);
    default:
      return;
  }
}

void EditExcludeFolders(frmMain& window, int index) {
  const Editor editor{window, window.lvExcludeFolders, SaveExcludeFolders, LoadExcludeFolders};
  switch (index) {
    case kAdd:
      return AddExcludeFolder(editor);
    case kEdit:
      return EditExcludeFolder(editor);
    case kRemove:
      // The title is that of the file types, on purpose.
      return RemoveRow(editor,
                       "Are you sure you want to remove the selected folder from the list.This "
                       "operation cannot be undone",
                       "Confirm deletion of file type");
    default:
      return;
  }
}

}  // namespace tidemark
