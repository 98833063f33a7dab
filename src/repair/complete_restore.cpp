#include "repair/complete_restore.h"

#include <algorithm>
#include <utility>

#include "platform/file_system_object.h"
#include "platform/registry_script_reader.h"
#include "platform/winapi.h"
#include "registry/real_keys.h"

namespace tidemark {
namespace {

constexpr ULONGLONG kLongestWaitMs = 30'000;
constexpr DWORD kStepMs = 10;

// Nobody starts what would come between the editor and what is put back behind it.
class QuietPage {
 public:
  explicit QuietPage(frmMain& window) : window_(window) { Enable(false); }
  ~QuietPage() { Enable(true); }
  QuietPage(const QuietPage&) = delete;
  QuietPage& operator=(const QuietPage&) = delete;

 private:
  void Enable(bool enabled) {
    for (CommandButton* button : {&window_.cmdRestore, &window_.cmdRemove}) {
      button->SetEnabled(enabled);
    }
  }
  frmMain& window_;
};

bool WaitForEnd(FrontEnd& front_end, const StartedProgram& program) {
  const ULONGLONG start = GetTickCount64();
  while (!program.HasEnded()) {
    if (GetTickCount64() - start >= kLongestWaitMs) return false;
    front_end.DoEvents();
    Sleep(kStepMs);
  }
  return true;
}

// Each restore has one of its own for what it takes the place of.
std::string NewReplacedFolder(const std::string& folder) {
  constexpr const char* kReplaced = "-replaced";
  const std::string base = folder.substr(0, folder.find(kReplaced, folder.rfind('\\'))) + kReplaced;
  std::string free = base;
  for (int number = 2; FileSystemObject().FolderExists(free); ++number) {
    free = base + std::to_string(number);
  }
  return free;
}

}  // namespace

std::string CompleteRecordFolder(const std::string& undo_file) {
  const auto end = undo_file.rfind('\\') + 1;
  return undo_file.substr(0, end) + "complete\\" + undo_file.substr(end);
}

CompleteRestore::CompleteRestore(const std::string& undo_file)
    : folder_(CompleteRecordFolder(undo_file)) {
  if (!FileSystemObject().FolderExists(folder_)) return;
  RecordContents contents = ReadRecord(folder_);
  missing_ = contents.Missing();
  cut_ = contents.cut;
  // Of a repair that wrote an undo file there are pieces too; else they are what is missing.
  const bool whole = contents.IsWhole() && !contents.pieces.empty();
  plan_.emplace();
  plan_->Add(std::move(contents), folder_);
  SpareWhatTheImportTouches(undo_file, whole);
  const std::string replaced_folder = NewReplacedFolder(folder_);
  CompleteRecord replaced(replaced_folder);
  replaced_ = plan_->KeepReplaced(replaced);
  replaced.End();
  // What could not be kept has not been replaced.
  if (replaced_.newer + replaced_.earlier == 0) RemoveRecord(replaced_folder);
}

// The undo file's names lack what the code page lacks, and name the merged classes: the import
// makes keys and values that never were. But what a record lacks the undo file may be the last to
// hold: then what it makes stays, and what stands is kept from it.
void CompleteRestore::SpareWhatTheImportTouches(const std::string& undo_file,
                                                bool record_is_whole) {
  const auto bytes = FileSystemObject().ReadAll(undo_file);
  if (!bytes) return;
  try {
    const std::string text = DecodeScript(*bytes, ScriptManner::kLenient);
    ScriptReader script(text, ScriptManner::kLenient);
    std::vector<RealKey> places;
    for (auto line = script.Next(); line != ScriptReader::Line::kEnd; line = script.Next()) {
      if (line != ScriptReader::Line::kValue) {
        places.clear();
        if (const auto key = KeyOfFullName(script.key())) {
          places = PossiblePlaces(key->root, key->path);
        }
      }
      const bool is_value = line == ScriptReader::Line::kValue;
      const bool known =
          record_is_whole || std::any_of(places.begin(), places.end(), [&](const RealKey& place) {
            return is_value ? plan_->Records(place, script.value().name) : plan_->Records(place);
          });
      for (const RealKey& place : places) {
        if (known) plan_->Spare(place);
        if (is_value) plan_->Spare(place, script.value().name, /*if_it_stands=*/!known);
      }
    }
  } catch (const ScriptFault&) {
    // No script: the editor makes nothing of it either.
  }
}

void CompleteRestore::Finish(frmMain& window, const StartedProgram* editor) {
  if (!plan_) return;
  const QuietPage quiet(window);
  const bool editor_ended = editor == nullptr || WaitForEnd(window.front_end, *editor);
  const RestoreOutcome outcome = plan_->PutBack();
  const std::size_t lost = outcome.failed + missing_;
  std::string text;
  if (lost > 0) {
    text = std::to_string(lost) + " entries could not be put back. The record stays in this list.";
  } else if (outcome.left_alone > 0) {
    text = std::to_string(outcome.left_alone) +
           " entries were left alone, for others stand in their places. The record stays in this "
           "list.";
  } else if (cut_) {
    text = "The record ends early; what is in it was put back. It stays in this list.";
  } else if (!editor_ended) {
    text = "The registry editor is still at work. The record stays in this list.";
  } else {
    RemoveRecord(folder_);
    text = "Everything was put back as it was.";
    for (const auto& [count, what] :
         {std::pair(replaced_.newer, " newer"), std::pair(replaced_.earlier, " earlier")}) {
      if (count == 0) continue;
      text.append(" ").append(std::to_string(count)).append(what);
      text += " entries are kept in this list.";
    }
  }
  window.lblRestored.SetCaption(text);
}

}  // namespace tidemark
