#include "startup/startup_page.h"

#include <string>

#include "platform/letter_case.h"
#include "startup/startup.h"

namespace tidemark {
namespace {

constexpr int kSource = 6;  // the column, which shows what kLocation holds

// Pictures of the list.
constexpr int kBrokenIcon = 1;
constexpr int kOwnIcon = 2;

bool IsOwn(const frmMain& window, const ListItem& program) {
  const std::string own = UpperCase(window.application.folder + "\\" + window.application.title);
  return UpperCase(program.SubItem(kCommand).View()).find(own) != std::string::npos;
}

bool IsBroken(const ListItem& program) { return program.SubItem(kExists) == "No"; }

std::string NoteOn(const frmMain& window, const ListItem& program) {
  if (IsBroken(program)) return "What this entry starts is not there.";
  if (!IsOwn(window, program)) return "";
  return "Tidemark's own entry: 'Start Tidemark when Windows starts' on the Options page.";
}

}  // namespace

void MarkPrograms(frmMain& window) {
  for (int index = 1; index <= window.lvPrograms.Count(); ++index) {
    ListItem& program = *window.lvPrograms.Item(index);
    program.SetSubItem(kSource, program.SubItem(kLocation));
    if (IsBroken(program)) {
      program.SetSmallIcon(kBrokenIcon);
    } else if (IsOwn(window, program)) {
      program.SetSmallIcon(kOwnIcon);
    }
  }
  ShowSelectedProgram(window);
}

void ShowSelectedProgram(frmMain& window) {
  const ListItem* program = window.lvPrograms.SelectedItem();
  window.cmdWriteBack.SetEnabled(program != nullptr && CanWriteBack(*program));
  window.cmdDeleteEntry.SetEnabled(program != nullptr);
  window.lblProgramNote.SetCaption(program == nullptr ? "" : NoteOn(window, *program));
}

}  // namespace tidemark
