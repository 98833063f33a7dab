#include "repair/backups.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "helpers/system_helpers.h"
#include "helpers/text_helpers.h"
#include "platform/file_system_object.h"
#include "platform/letter_case.h"
#include "platform/locale_texts.h"
#include "platform/program_start.h"
#include "platform/winapi.h"
#include "registry/record_contents.h"
#include "repair/complete_restore.h"

namespace tidemark {
namespace {

constexpr int kBackupIcon = 3;

std::string BackupFolder(const frmMain& window) { return window.application.folder + "\\backup"; }

// The row's text is all that leads to its file.
std::string BackupFile(const frmMain& window, std::string_view row_text) {
  return (BackupFolder(window) + "\\").append(TrimBlanks(row_text));
}

void ShowBox(frmMain& window, std::string_view caption, const std::string& message,
             bool is_question) {
  window.MessBoxAnswer = "EMPTY";
  ++window.MessBoxesShown;
  window.MakeMessBox();
  frmMessBox& box = *window.mess_box;
  box.form.SetQuestion(is_question);
  box.form.SetCaption(std::string(caption));
  for (CommandButton* button : {&box.cmdNo, &box.cmdYes, &box.cmdOK}) {
    const bool offered = is_question == (button != &box.cmdOK);
    button->SetEnabled(offered);
    button->SetVisible(offered);
  }
  box.lblMessage.SetCaption(message);
  window.front_end.Show(box.form);
}

void Tell(frmMain& window, std::string_view caption, const std::string& message) {
  ShowBox(window, caption, message, /*is_question=*/false);
}

// The box is not modal, so the wait is a loop of yields, and all else goes on in it. On purpose.
// A notice or a question that has taken its place leaves it without an answer of its own: that
// counts as no.
bool Ask(frmMain& window, std::string_view caption, const std::string& message) {
  ShowBox(window, caption, message, /*is_question=*/true);
  const auto stands = [&window, shown = window.MessBoxesShown] {
    return window.MessBoxesShown == shown;
  };
  while (stands() && window.MessBoxAnswer == "EMPTY") window.front_end.WaitForEvents();
  return stands() && window.MessBoxAnswer != "NO";
}

// Home tells of the last repair only as long as its undo is there.
void ForgetOnHomePage(frmMain& window, std::string_view undo_file) {
  const std::string_view told = window.lblRepaired.Caption().View();
  if (told.find(undo_file) != std::string_view::npos) window.lblRepaired.SetCaption("");
}

bool HasRecord(const std::string& file) {
  return FileSystemObject().FolderExists(CompleteRecordFolder(file));
}

// What a file is, by the name that it was given when it was written.
const char* KindOf(const std::string& name) {
  const std::string lower = LowerCase(name);
  if (lower.starts_with("undo_")) return "Undo: what a repair has deleted";
  return lower.starts_with("regbackup_") ? "Backup: the whole registry" : "Registry file";
}

void ListFile(frmMain& window, const std::string& name, const std::string& file_name) {
  ListItem* row = window.LvBackup.Add({}, name);
  row->SetSmallIcon(kBackupIcon);
  row->SetSubItem(2, KindOf(name));
  FileSystemObject::File file;
  if (FileSystemObject().GetFile(file_name, file)) return;
  if (const auto changed = file.DateLastModified()) row->SetSubItem(1, DateTimeText(*changed));
  if (const auto size = file.Size()) row->SetSubItem(3, SizeText(*size));
}

// Records whose undo file is not there: of a repair of shortcuts alone, which writes none, and what
// a restore could not bring back or took the place of.
void ListRecordsAlone(frmMain& window) {
  FileSystemObject::Folder records;
  if (FileSystemObject().GetFolder(BackupFolder(window) + "\\complete", records)) return;
  for (const std::string& name : records.SubFolders()) {
    if (!name.starts_with("undo_") || IsExistingFile(BackupFile(window, name))) continue;
    const std::string script = records.PathOf(name) + "\\registry.reg";
    ListFile(window, name, IsExistingFile(script) ? script : records.PathOf(name) + "\\files.txt");
  }
}

}  // namespace

void Loadbackup(frmMain& window) {
  window.LvBackup.Clear();
  window.lblBackupNote.SetCaption("");
  const std::string folder = BackupFolder(window);
  CreateNewFolder(folder);
  if (!IsExistingFolder(folder)) FileSystemObject().CreateFolder(folder);
  window.File1.SetPath(folder);  // where there is none, the folder before stays
  window.File1.Refresh();
  for (int index = 0; index < window.File1.ListCount(); ++index) {
    window.File1.SetListIndex(index);
    const std::string name = window.File1.List(index);
    ListFile(window, name, (folder + "\\").append(name));
  }
  ListRecordsAlone(window);
}

void cmdBakupReg_Click(frmMain& window) {
  const std::string folder = AddBackslash(window.application.folder) + "backup";
  if (!IsExistingFolder(folder)) CreateNewFolder(folder);
  SYSTEMTIME now{};
  GetLocalTime(&now);
  // Two blanks behind the program's name, on purpose.
  StartProgram("regedit  /e \"" + folder + "\\RegBackup_" + FormatTime(now, "yymmdd") + "_" +
                   FormatTime(now, "hhnnss") + ".reg\"",
               WindowStyle::kMinimizedFocus);
  // The export may still be running, so that its file is not there yet, or shows an earlier time.
  Tell(window, "Tidemark - Manual Backup Complete!",
       "You have successfully created a backup of your registry\r\n"
       "This backup file can be used to 'Restore' your current \r\n"
       "registry settings at anytime");
  Loadbackup(window);
}

void cmdRestore_Click(frmMain& window) {
  window.lblRestored.SetCaption("");
  const ListItem* row = window.LvBackup.SelectedItem();
  if (row == nullptr) return;
  // The list may be filled anew while the question is up.
  const std::string row_text = row->Caption().String();
  const std::string file = BackupFile(window, row_text);
  std::optional<CompleteRestore> restore;
  std::unique_ptr<StartedProgram> editor;
  const bool has_file = IsExistingFile(file);
  if (has_file || HasRecord(file)) {
    if (!Ask(window, "Tidemark - Restore Backup File?",
             "Are you sure you would like to restore your registry using the backup file:\r\n" +
                 row_text)) {
      return;
    }
    // Two blanks behind the switch, on purpose. A restored file is used up; the editor, which is
    // not awaited, competes with its deletion.
    restore.emplace(file);
    if (has_file) {
      editor = StartAndFollow("regedit /s  \"" + file + "\"", WindowStyle::kMinimizedFocus);
    }
    DeleteFileA(file.c_str());
    ForgetOnHomePage(window, row_text);
    Tell(window, "Tidemark - Restore Complete!", "The selected backup file has been restored!");
  }
  Loadbackup(window);
  if (!restore || !HasRecord(file)) return;
  restore->Finish(window, editor.get());
  Loadbackup(window);
}

void cmdRemove_Click(frmMain& window) {
  window.lblRestored.SetCaption("");
  const ListItem* row = window.LvBackup.SelectedItem();
  if (row == nullptr) return;
  const std::string row_text = row->Caption().String();
  if (!Ask(window, "Tidemark - Delete Backup File?",
           "Are you sure you would like to delete the backup file:\r\n" + row_text)) {
    return;
  }
  const std::string file = BackupFile(window, row_text);
  DeleteFileA(file.c_str());
  if (!IsExistingFile(file)) RemoveRecord(CompleteRecordFolder(file));
  ForgetOnHomePage(window, row_text);
  Loadbackup(window);
}

void LvBackup_MouseUp(frmMain& window) {
  const ListItem* row = window.LvBackup.SelectedItem();
  if (row == nullptr) return;
  const std::string file = BackupFile(window, row->Caption().String());
  const std::string counts = CountsText(CountsOf(ReadRecord(CompleteRecordFolder(file))));
  window.LvBackup.SetToolTipText(counts);
  window.lblBackupNote.SetCaption(counts.empty() ? "" : "The selected undo holds " + counts + ".");
}

}  // namespace tidemark
