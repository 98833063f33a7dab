// What the program asks and tells in windows over the page. They are forms of the toolkit's own
// controls, so that keys and mouse work in them as everywhere.
#include <algorithm>
#include <memory>
#include <vector>

#include "desktop/terminal/display_text.h"
#include "desktop/terminal/during.h"
#include "desktop/terminal/screen/screen_front_end.h"
#include "platform/folder_search.h"
#include "platform/winapi.h"
#include "toolkit/control_group.h"
#include "toolkit/list_view.h"
#include "toolkit/menu.h"

namespace tidemark {
namespace {

constexpr int kLine = 300;   // of the places below, in twips
constexpr int kSpace = 300;  // sets a blank line
constexpr int kManyLines = 9000;

// A form with a text, maybe more, and a row of buttons.
class Question {
 public:
  Question(std::string_view title, std::string_view text) : form("question") {
    form.SetCaption(title);
    form.SetFrame(FormFrame::kDialog);
    text_.SetCaption(text);
    text_.SetPlace({0, 0, 9000, kManyLines});
    top_ = kManyLines + (text.empty() ? 0 : kSpace);
  }

  void Add(Control& control, int height = kLine) {
    control.SetPlace({0, top_, 9000, height});
    top_ += height;
  }
  // Pressing it sets the answer.
  CommandButton& AddButton(const char* caption) {
    CommandButton& button = buttons_.Add(&form, buttons_.Count());
    button.SetCaption(caption);
    button.SetPlace({buttons_.Count() * 1500, top_ + kSpace, 1200, kLine});
    button.Clicked.Bind([this, &button] {
      answer = &button;
      answered = true;
    });
    return button;
  }

  Form form;
  bool answered = false;
  const CommandButton* answer = nullptr;

 private:
  Label text_{&form, "text"};
  ControlGroup<CommandButton> buttons_{"button"};
  int top_ = 0;
};

std::string_view Mark(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kExclamation:
      return "(!) ";
    case MessageIcon::kCritical:
      return "(x) ";
    default:
      return "";
  }
}

// The folders in a folder; the drives where none is named.
std::vector<std::string> FoldersIn(const std::string& path) {
  std::vector<std::string> folders;
  if (path.empty()) {
    const DWORD drives = GetLogicalDrives();
    for (int drive = 0; drive < 26; ++drive) {
      if ((drives >> drive & 1U) != 0) {
        folders.push_back(std::string(1, static_cast<char>('A' + drive)) + ":\\");
      }
    }
    return folders;
  }
  for (FolderSearch found(path + (path.ends_with('\\') ? "*" : "\\*")); found; found.Next()) {
    const bool is_folder = (found->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (is_folder && found->name != "." && found->name != "..") folders.push_back(found->name);
  }
  return folders;
}

// "C:\" of "C:\Windows", nothing of "C:\".
std::string ParentOf(const std::string& path) {
  const std::size_t slash = path.find_last_of('\\', path.size() < 2 ? 0 : path.size() - 2);
  if (slash == std::string::npos) return {};
  return path.substr(0, slash == 2 ? 3 : slash);
}

void Fill(ListView& list, const std::string& path) {
  list.Clear();
  if (!path.empty()) list.Add("..", "..");
  for (const std::string& folder : FoldersIn(path)) list.Add("", folder);
}

}  // namespace

void ScreenFrontEnd::ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) {
  Question question(title, std::string(Mark(icon)).append(text));
  CommandButton& ok = question.AddButton("&OK");
  ok.SetDefault(true);
  ok.SetCancel(true);
  RunModally(question.form, question.answered);
}

void ScreenFrontEnd::CopyText(std::string_view text) {
  screen_.CopyText(text);
  notice_ = "copied, where the terminal lets programs do that";
}

// The safe answer comes first and has the focus; a question has to be answered.
bool ScreenFrontEnd::AskYesNo(std::string_view text, std::string_view title) {
  Question question(title, text);
  CommandButton& no = question.AddButton("&No");
  no.SetDefault(true);
  question.form.SetQuestion(true);
  const CommandButton& yes = question.AddButton("&Yes");
  RunModally(question.form, question.answered);
  return question.answer == &yes;
}

std::string ScreenFrontEnd::InputBox(std::string_view prompt, std::string_view title,
                                     std::string_view default_text) {
  Question question(title, prompt);
  TextBox box(&question.form, "text box");
  question.Add(box);
  box.SetText(default_text);
  box.SetSelLength(static_cast<int>(default_text.size()));
  CommandButton& ok = question.AddButton("OK");
  ok.SetDefault(true);
  question.AddButton("Cancel").SetCancel(true);
  focus_[&question.form].MoveTo({&box, {}});
  RunModally(question.form, question.answered);
  return question.answer == &ok ? box.Text().String() : std::string();
}

std::string ScreenFrontEnd::BrowseForFolder(std::string_view title) {
  Question question("Folder", title);
  TextBox path(&question.form, "path");
  ListView folders(&question.form, "folders");
  question.Add(path);
  question.Add(folders, 5000);
  folders.SetAccessibleName("Folders");
  folders.columns = {{"", 9000, {}}};
  CommandButton& ok = question.AddButton("OK");
  ok.SetDefault(true);
  question.AddButton("Cancel").SetCancel(true);
  path.Changed.Bind([&] { Fill(folders, path.Text().String()); });
  folders.DoubleClicked.Bind([&] {
    const std::string name = folders.SelectedItem()->Caption().String();
    std::string target = path.Text().String();
    if (name == "..") {
      target = ParentOf(target);
    } else {
      if (!target.empty() && !target.ends_with('\\')) target += '\\';
      target += name;
    }
    path.SetText(target);
    if (folders.Count() > 0) folders.Select(folders.Item(1));
  });
  Fill(folders, {});
  folders.Select(folders.Item(1));
  focus_[&question.form].MoveTo({&folders, {}});
  RunModally(question.form, question.answered);
  return question.answer == &ok ? path.Text().String() : std::string();
}

void ScreenFrontEnd::PopupMenu(Menu& menu) {
  Form form("menu");
  bool answered = false;
  MenuItem* chosen = nullptr;
  std::vector<std::unique_ptr<MenuItem>> items;
  int top = 0;
  for (Control* control : menu.Controls()) {
    auto* item = dynamic_cast<MenuItem*>(control);
    if (item == nullptr || !item->Visible()) continue;
    MenuItem& shown = *items.emplace_back(std::make_unique<MenuItem>(&form, item->Name()));
    shown.SetCaption(item->Caption());
    shown.SetEnabled(item->Enabled());
    shown.SetPlace({0, top, 4000, kLine});
    shown.Clicked.Bind([&answered, &chosen, item] {
      chosen = item;
      answered = true;
    });
    top += kLine;
  }
  const During open(menu_, static_cast<const Form*>(&form));
  RunModally(form, answered);
  if (chosen != nullptr) chosen->Click();
}

void ScreenFrontEnd::ShowText(std::string_view title, const std::string& text) {
  Question question(title, "");
  ListView lines(&question.form, "lines");
  lines.columns = {{"", 9000, {}}};
  const int width = WidestWindow() - ListShape::kMarkWidth;
  for (const std::string& line : Wrap(text, width)) lines.Add("", line);
  question.Add(lines, 5000);
  CommandButton& close = question.AddButton("&Close");
  close.SetDefault(true);
  close.SetCancel(true);
  focus_[&question.form].MoveTo({&lines, {}});
  RunModally(question.form, question.answered);
}

}  // namespace tidemark
