#include "desktop/terminal/script/sketch.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "desktop/terminal/control_face.h"
#include "desktop/terminal/display_text.h"
#include "toolkit/access_key.h"
#include "toolkit/reading_order.h"
#include "toolkit/text_box.h"

namespace tidemark {
namespace {

constexpr std::string_view kOff = " (off)";

// "lblOptions" of "lblOptions(2)".
std::string GroupOf(const Control& control) {
  const std::size_t bracket = control.Name().find('(');
  return bracket == std::string::npos ? std::string() : control.Name().substr(0, bracket);
}

Line BarLine(int percent, int width) {
  const int columns = std::clamp(width - 12, 10, 60);
  std::string filled;
  std::string empty;
  for (int column = 0; column < columns; ++column) {
    (column < columns * percent / 100 ? filled : empty) +=
        column < columns * percent / 100 ? "█" : "░";
  }
  return Line(filled + empty + " " + std::to_string(percent) + " %");
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
    } else if (const auto text = ButtonCaption(control)) {
      AddButton(control, WithoutAccessKey(*text));
    } else if (!MarkOf(control).empty()) {
      AddChoice(static_cast<const CommandButton&>(control));
    } else if (const auto percent = PercentOf(control)) {
      const bool plain = dynamic_cast<const ProgressBar*>(&control) != nullptr;
      if (*percent > 0 || plain) AddLines({BarLine(*percent, width_)});
    } else if (const auto* label = dynamic_cast<const Label*>(&control)) {
      AddLabel(*label);
    } else if (const auto* box = dynamic_cast<const TextBox*>(&control)) {
      Line line(box->Name());
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
    Line line(MarkOf(choice));
    line.Add(choice.Name()).Add(" ");
    line.Add(WithoutAccessKey(choice.Caption().View()));
    if (!choice.Enabled()) line.Add(kOff);
    AddLines({line});
  }

  static Line ButtonLine(std::string_view name, std::string_view text, bool enabled) {
    Line line("[ ");
    line.Add(name);
    if (!text.empty()) line.Add(" ").Add(text);
    if (!enabled) line.Add(kOff);
    return std::move(line.Add(" ]"));
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
    line.Add(name);
    if (!text.empty()) line.Add(" ").Add(text);
    return std::move(line.Add(chosen ? "]" : " "));
  }

  // The heading that its list bears already is left out.
  void AddLabel(const Label& label) {
    if (!label.Caption().empty()) {
      if (IsHeadingOfList(label)) return;
      Lines lines;
      for (const std::string& text : LabelLines(label.Caption().View(), width_ - 1)) {
        lines.emplace_back(text);
      }
      AddText(label, std::move(lines));
    } else if (IsTab(label)) {
      const std::string group = GroupOf(label);
      const std::string_view index = std::string_view(label.Name()).substr(group.size());
      const bool chosen = IsChosen(label);
      AddChip({TabLine(label.Name(), NameOf(label), chosen), TabLine(index, NameOf(label), chosen),
               group});
    }
  }

  void AddPanel(const Control& panel) {
    if (!CoversList(panel)) {
      AddAll(panel);
      return;
    }
    constexpr int kFrame = 8;
    auto inner = std::make_unique<Sketch>();
    Sketcher(*inner, width_ - kFrame).AddAll(panel);
    sketch_.blocks.emplace_back().panel = std::move(inner);
  }

  void AddImage(const ImageBox& image) {
    if (IsPageButton(image)) {
      const bool chosen = IsChosen(image);
      sketch_.page_buttons.push_back(
          {TabLine(image.Name(), NameOf(image), chosen), TabLine(image.Name(), {}, chosen), {}});
    } else if (const std::string text = ImageText(image); !text.empty()) {
      AddText(image, {Line("(" + text + ")")});
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

}  // namespace tidemark
