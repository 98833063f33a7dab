#include "desktop/terminal/sketch.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "controls/xp_progress_bar.h"
#include "controls/xpcmdbutton.h"
#include "desktop/terminal/display_text.h"
#include "desktop/terminal/reading_order.h"
#include "toolkit/access_key.h"
#include "toolkit/option_button.h"
#include "toolkit/text_box.h"

namespace tidemark {
namespace {

constexpr std::string_view kOff = " (off)";

std::string NameOf(const Control& control) {
  return WithoutAccessKey(control.AccessibleName().View());
}

// "lblOptions" of "lblOptions(2)".
std::string GroupOf(const Control& control) {
  const std::size_t bracket = control.Name().find('(');
  return bracket == std::string::npos ? std::string() : control.Name().substr(0, bracket);
}

// What a push button says, a self-drawn one by the name that says more than its face; nothing for
// another control.
std::optional<std::string> ButtonText(const Control& control) {
  if (dynamic_cast<const CheckBox*>(&control) || dynamic_cast<const OptionButton*>(&control)) {
    return {};
  }
  if (const auto* button = dynamic_cast<const CommandButton*>(&control)) {
    return WithoutAccessKey(button->Caption().View());
  }
  if (const auto* button = dynamic_cast<const xpcmdbutton*>(&control)) {
    const std::string name = NameOf(control);
    return name.empty() ? WithoutAccessKey(button->Caption().View()) : name;
  }
  return {};
}

// In percent; nothing for a control that is no progress bar.
std::optional<int> PercentOf(const Control& control) {
  if (const auto* bar = dynamic_cast<const XP_ProgressBar*>(&control)) return bar->Percent();
  if (const auto* bar = dynamic_cast<const ProgressBar*>(&control)) {
    return bar->Max() <= 0 ? 0 : static_cast<int>(100LL * bar->Value() / bar->Max());
  }
  return {};
}

// The mark of a check box or an option button; empty for another control.
std::string_view Mark(const Control& control) {
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) {
    return box->Value() == 1 ? "[x] " : "[ ] ";
  }
  if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
    return option->Value() ? "(o) " : "( ) ";
  }
  return {};
}

Line BarLine(int percent, int width) {
  percent = std::clamp(percent, 0, 100);
  const int columns = std::clamp(width - 12, 10, 60);
  std::string filled;
  std::string empty;
  for (int column = 0; column < columns; ++column) {
    (column < columns * percent / 100 ? filled : empty) +=
        column < columns * percent / 100 ? "█" : "░";
  }
  Line line;
  line.Add(filled, Style::kNotice).Add(empty, Style::kFaint);
  return std::move(line.Add(" ").Add(std::to_string(percent)).Add(" %"));
}

// The label on one line, or on several. Blanks that put its words above the columns of a list do
// not on a page that is narrower than the window.
std::vector<std::string> LabelLines(std::string_view caption, int width) {
  constexpr std::size_t kFewBlanks = 3;
  std::string text(caption);
  if (DisplayWidth(Displayable(text)) > width) {
    const std::string run(kFewBlanks + 1, ' ');
    for (std::size_t at = text.find(run); at != std::string::npos; at = text.find(run, at)) {
      text.erase(at, 1);
    }
  }
  return Wrap(text, width);
}

class Sketcher {
 public:
  Sketcher(Sketch& sketch, int width) : sketch_(sketch), width_(width) {}

  void AddAll(const Control& container) {
    for (Control* control : InReadingOrder(container)) Add(*control);
  }

 private:
  void Add(Control& control) {
    if (auto list = RowsOf(control)) {
      sketch_.blocks.emplace_back().list = std::move(list);
    } else if (const auto text = ButtonText(control)) {
      AddButton(control, *text);
    } else if (!Mark(control).empty()) {
      AddChoice(static_cast<const CommandButton&>(control));
    } else if (const auto percent = PercentOf(control)) {
      const bool plain = dynamic_cast<const ProgressBar*>(&control) != nullptr;
      if (*percent > 0 || plain) AddLines({BarLine(*percent, width_)});
    } else if (const auto* label = dynamic_cast<const Label*>(&control)) {
      AddLabel(*label);
    } else if (const auto* box = dynamic_cast<const TextBox*>(&control)) {
      Line line(box->Name(), Style::kNotice);
      AddText(control, {line.Add(" [").Add(box->Text().View()).Add("]")});
    } else if (!control.Controls().empty() || dynamic_cast<const PictureBox*>(&control)) {
      AddPanel(control);
    } else if (const auto* image = dynamic_cast<const ImageBox*>(&control)) {
      AddImage(*image);
    }
  }

  void AddLines(Lines lines) { sketch_.blocks.emplace_back().lines = std::move(lines); }

  void AddText(const Control& control, Lines lines) {
    AddLines(std::move(lines));
    sketch_.blocks.back().text = &control;
  }

  void AddChoice(const CommandButton& choice) {
    Line line(Mark(choice));
    line.Add(choice.Name(), choice.Enabled() ? Style::kNotice : Style::kFaint).Add(" ");
    line.Add(WithoutAccessKey(choice.Caption().View()));
    if (!choice.Enabled()) line.Add(kOff);
    AddLines({line});
  }

  static Line ButtonLine(std::string_view name, std::string_view text, bool enabled) {
    Line line("[ ", Style::kFaint);
    line.Add(name, enabled ? Style::kNotice : Style::kFaint);
    if (!text.empty()) line.Add(" ").Add(text, enabled ? Style::kStrong : Style::kFaint);
    if (!enabled) line.Add(kOff, Style::kFaint);
    return std::move(line.Add(" ]", Style::kFaint));
  }

  void AddButton(const Control& button, const std::string& text) {
    const std::string group = GroupOf(button);
    const std::string_view index = std::string_view(button.Name()).substr(group.size());
    Chip chip{ButtonLine(button.Name(), text, button.Enabled()),
              ButtonLine(index, text, button.Enabled()), group};
    const auto& siblings = button.Container()->Controls();
    const bool has_list =
        std::any_of(siblings.begin(), siblings.end(), [&button](const Control* other) {
          return HasRows(*other) && other->Visible() && IsBeside(*other, button);
        });
    if (has_list) {
      AddChip(std::move(chip));
    } else {
      sketch_.buttons.push_back(std::move(chip));
    }
  }

  void AddChip(Chip chip) {
    if (sketch_.blocks.empty() || sketch_.blocks.back().chips.empty()) {
      sketch_.blocks.emplace_back();
    }
    sketch_.blocks.back().chips.push_back(std::move(chip));
  }

  static Line TabLine(std::string_view name, std::string_view text, bool chosen) {
    Line line(chosen ? "[" : " ");
    line.Add(name, chosen ? Style::kChosen : Style::kNotice);
    if (!text.empty()) line.Add(" ").Add(text, chosen ? Style::kStrong : Style::kPlain);
    return std::move(line.Add(chosen ? "]" : " "));
  }

  // The heading that its list bears already is left out.
  void AddLabel(const Label& label) {
    constexpr unsigned kWhite = 0xFFFFFF;
    if (!label.Caption().empty()) {
      if (IsHeadingOfList(label)) return;
      Lines lines;
      for (const std::string& text : LabelLines(label.Caption().View(), width_ - 1)) {
        lines.emplace_back(text);
      }
      AddText(label, std::move(lines));
    } else if (label.Clicked.IsBound()) {
      // A click area over a picture: a tab.
      const std::string group = GroupOf(label);
      const std::string_view index = std::string_view(label.Name()).substr(group.size());
      const bool chosen = label.BackColor() == kWhite;
      AddChip({TabLine(label.Name(), NameOf(label), chosen), TabLine(index, NameOf(label), chosen),
               group});
    }
  }

  static bool IsHeadingOfList(const Label& label) {
    const auto& siblings = label.Container()->Controls();
    return std::any_of(siblings.begin(), siblings.end(), [&label](const Control* other) {
      return HasRows(*other) && other->Visible() && label.Caption() == NameOf(*other);
    });
  }

  void AddPanel(const Control& panel) {
    const auto& siblings = panel.Container()->Controls();
    const bool covers_list =
        std::any_of(siblings.begin(), siblings.end(), [&panel](const Control* other) {
          return HasRows(*other) && other->Visible() && Overlap(*other, panel);
        });
    if (!covers_list) {
      AddAll(panel);
      return;
    }
    constexpr int kFrame = 8;
    auto inner = std::make_unique<Sketch>();
    Sketcher(*inner, width_ - kFrame).AddAll(panel);
    sketch_.blocks.emplace_back().panel = std::move(inner);
  }

  // The picture of the page that is up is the second one of its button. A picture without a name is
  // there for the eye alone; a film says that work goes on.
  void AddImage(const ImageBox& image) {
    const std::string_view picture = FileTitle(image.PictureFile());
    const auto* film = dynamic_cast<const Animation*>(&image);
    if (image.Name().starts_with("cmd")) {
      const bool chosen = picture.ends_with('2');
      sketch_.page_buttons.push_back(
          {TabLine(image.Name(), NameOf(image), chosen), TabLine(image.Name(), {}, chosen), {}});
    } else if (film != nullptr ? film->Playing() : !picture.empty() && !NameOf(image).empty()) {
      Line line("(", Style::kStrong);
      if (film == nullptr) line.Add(NameOf(image) + ": ", Style::kStrong);
      AddText(image, {line.Add(picture, Style::kStrong).Add(")", Style::kStrong)});
    }
  }

  Sketch& sketch_;
  int width_;
};

}  // namespace

Lines InRows(const std::vector<Chip>& chips, int width, bool all_brief) {
  Lines rows;
  const Chip* before = nullptr;
  for (const Chip& chip : chips) {
    const bool follows = before != nullptr && !chip.group.empty() && before->group == chip.group;
    const Line& in_row = follows || all_brief ? chip.brief : chip.full;
    if (before == nullptr || rows.back().Width() + in_row.Width() + 2 > width) {
      rows.emplace_back(" ").Append(all_brief ? chip.brief : chip.full);
    } else {
      rows.back().Add("  ").Append(in_row);
    }
    before = &chip;
  }
  return rows;
}

Sketch MakeSketch(const Form& form, int width) {
  Sketch sketch;
  Sketcher(sketch, width).AddAll(form);
  return sketch;
}

std::string ControlText(const Control& control) {
  if (const auto text = ButtonText(control)) return *text;
  if (const std::string_view mark = Mark(control); !mark.empty()) {
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
