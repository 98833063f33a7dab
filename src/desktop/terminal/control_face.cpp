#include "desktop/terminal/control_face.h"

#include <algorithm>

#include "controls/xp_progress_bar.h"
#include "controls/xpcmdbutton.h"
#include "desktop/terminal/display_text.h"
#include "toolkit/access_key.h"
#include "toolkit/menu.h"
#include "toolkit/option_button.h"
#include "toolkit/reading_order.h"
#include "toolkit/text_box.h"

namespace tidemark {
namespace {

constexpr unsigned kWhite = 0xFFFFFF;

// "RegHealth-Low" of "C:\Program Files\Tidemark\Images\RegHealth-Low.jpg".
std::string_view FileTitle(std::string_view path) {
  path.remove_prefix(path.find_last_of("\\/") + 1);  // npos + 1 is 0
  return path.substr(0, path.rfind('.'));
}

}  // namespace

std::string NameOf(const Control& control) {
  return WithoutAccessKey(control.AccessibleName().View());
}

std::optional<std::string> ButtonCaption(const Control& control) {
  if (!MarkOf(control).empty()) return {};
  if (const auto* button = dynamic_cast<const CommandButton*>(&control)) {
    return button->Caption().String();
  }
  if (const auto* item = dynamic_cast<const MenuItem*>(&control)) return item->Caption().String();
  if (const auto* button = dynamic_cast<const xpcmdbutton*>(&control)) {
    return (button->AccessibleName().empty() ? button->Caption() : button->AccessibleName())
        .String();
  }
  return {};
}

std::string AccessKeyText(const Control& control) {
  if (const auto caption = ButtonCaption(control)) return *caption;
  if (const auto* choice = dynamic_cast<const CommandButton*>(&control)) {
    return choice->Caption().String();
  }
  return control.AccessibleName().String();
}

std::string_view MarkOf(const Control& control) {
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) {
    return box->Value() == 1 ? "[x] " : "[ ] ";
  }
  if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
    return option->Value() ? "(o) " : "( ) ";
  }
  return {};
}

std::optional<int> PercentOf(const Control& control) {
  if (const auto* bar = dynamic_cast<const XP_ProgressBar*>(&control)) {
    return std::clamp(bar->Percent(), 0, 100);
  }
  if (const auto* bar = dynamic_cast<const ProgressBar*>(&control)) {
    return bar->Max() <= 0 ? 0 : static_cast<int>(100LL * bar->Value() / bar->Max());
  }
  return {};
}

bool IsPageButton(const Control& control) {
  return dynamic_cast<const ImageBox*>(&control) != nullptr && control.Name().starts_with("cmd");
}

bool IsTab(const Control& control) {
  const auto* label = dynamic_cast<const Label*>(&control);
  return label != nullptr && label->Caption().empty() && label->Clicked.IsBound();
}

// The picture of the page that is up is the second one of its button.
bool IsChosen(const Control& control) {
  if (const auto* image = dynamic_cast<const ImageBox*>(&control)) {
    return FileTitle(image->PictureFile()).ends_with('2');
  }
  const auto* label = dynamic_cast<const Label*>(&control);
  return label != nullptr && label->BackColor() == kWhite;
}

std::string ImageText(const ImageBox& image) {
  const std::string picture(FileTitle(image.PictureFile()));
  if (const auto* film = dynamic_cast<const Animation*>(&image)) {
    return film->Playing() ? picture : std::string();
  }
  return picture.empty() ? std::string() : NameOf(image);
}

bool IsHeadingOfList(const Label& label) {
  const auto& siblings = label.Container()->Controls();
  return std::any_of(siblings.begin(), siblings.end(), [&label](const Control* other) {
    return HasRows(*other) && other->Visible() && label.Caption() == NameOf(*other);
  });
}

std::string ControlText(const Control& control) {
  if (const auto caption = ButtonCaption(control)) return WithoutAccessKey(*caption);
  if (const std::string_view mark = MarkOf(control); !mark.empty()) {
    const auto& choice = static_cast<const CommandButton&>(control);
    return std::string(mark) + WithoutAccessKey(choice.Caption().View());
  }
  if (const auto percent = PercentOf(control)) return std::to_string(*percent) + " %";
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) return box->Text().String();
  if (const auto* form = dynamic_cast<const Form*>(&control)) return form->Caption().String();
  if (const auto* image = dynamic_cast<const ImageBox*>(&control)) {
    return std::string(FileTitle(image->PictureFile()));
  }
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    return label->Caption().empty() ? NameOf(control) : label->Caption().String();
  }
  return {};
}

}  // namespace tidemark
