#include "desktop/terminal/screen/layout.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "desktop/terminal/control_face.h"
#include "desktop/terminal/display_text.h"
#include "desktop/terminal/rows.h"
#include "toolkit/menu.h"
#include "toolkit/reading_order.h"
#include "toolkit/text_box.h"

namespace tidemark {
namespace {

constexpr int kGap = 2;            // columns between what stands in a row
constexpr int kSpace_twips = 290;  // from here on a blank line stands for the space between bands
constexpr int kTextLine_twips = 195;
constexpr int kNarrowestList = 21;
constexpr int kTextBoxWidth = 50;
constexpr int kBarWidth = 30;

// Blanks that put words above the columns of a list.
constexpr std::string_view kManyBlanks = "    ";

// From the most comfortable to the tightest.
enum class Density { kAiry, kPlain, kTight };

int LeastRows(Density density, int count) {
  constexpr int kComfortable = 8;
  constexpr int kFew = 3;
  if (density == Density::kAiry) return std::clamp(count, kFew, kComfortable);
  return density == Density::kPlain ? kFew : 1;
}

// The arrangement of what is shown, panels opened up.
struct Node {
  Arrangement::Kind kind = Arrangement::Kind::kStack;
  Control* control = nullptr;
  bool is_list = false;
  std::vector<Node> parts = {};
  Bounds place = {};  // in the window, of all that is in it
};

bool IsLeaf(const Node& node) { return node.control != nullptr; }

bool Grows(const Node& node) {
  return node.is_list || std::any_of(node.parts.begin(), node.parts.end(), Grows);
}

Bounds Around(const Bounds& left, const Bounds& right) {
  const int x = std::min(left.left, right.left);
  const int y = std::min(left.top, right.top);
  return {x, y, std::max(left.left + left.width, right.left + right.width) - x,
          std::max(left.top + left.height, right.top + right.height) - y};
}

// A line of words above the columns of a list whose headings are not shown in the window. Here they
// are.
bool StandsForHeadings(const Label& label) {
  const auto& siblings = label.Container()->Controls();
  return label.Caption().View().find(kManyBlanks) != std::string_view::npos &&
         std::any_of(siblings.begin(), siblings.end(), [](const Control* control) {
           const auto* list = dynamic_cast<const ListView*>(control);
           return list != nullptr && list->Visible() && !list->headings;
         });
}

bool ShowsItself(const Control& control) {
  if (dynamic_cast<const TextBox*>(&control) || ButtonCaption(control) || HasRows(control)) {
    return true;
  }
  if (!MarkOf(control).empty() || IsPageButton(control)) return true;
  if (const auto percent = PercentOf(control)) {
    return *percent > 0 || dynamic_cast<const ProgressBar*>(&control) != nullptr;
  }
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    return IsTab(control) ||
           (!label->Caption().empty() && !IsHeadingOfList(*label) && !StandsForHeadings(*label));
  }
  const auto* image = dynamic_cast<const ImageBox*>(&control);
  return image != nullptr && !ImageText(*image).empty();
}

class TreeBuilder {
 public:
  std::optional<Node> Build(const Control& container, int left, int top) {
    const auto counts = [](const Control& control) {
      return ShowsItself(control) || !control.Controls().empty() ||
             dynamic_cast<const Label*>(&control) != nullptr;
    };
    return Prune(ArrangementOf(container, counts), left, top);
  }
  // Panels that lie over a list.
  std::vector<const Control*> over_lists;

 private:
  std::optional<Node> Prune(const Arrangement& arrangement, int left, int top) {
    if (arrangement.control != nullptr) return Leaf(*arrangement.control, left, top);
    Node node{.kind = arrangement.kind};
    for (const Arrangement& part : arrangement.parts) {
      auto pruned = Prune(part, left, top);
      if (!pruned) continue;
      node.place = node.parts.empty() ? pruned->place : Around(node.place, pruned->place);
      node.parts.push_back(std::move(*pruned));
    }
    if (node.parts.empty()) return {};
    if (node.parts.size() > 1) return node;
    Node only = std::move(node.parts[0]);
    return only;
  }

  std::optional<Node> Leaf(Control& control, int left, int top) {
    const Bounds& place = control.Place();
    left += place.left;
    top += place.top;
    if (!ShowsItself(control)) {
      if (control.Controls().empty()) return {};
      if (!CoversList(control)) return Build(control, left, top);
      over_lists.push_back(&control);
      return {};
    }
    Node node{.kind = Arrangement::Kind::kControl, .control = &control};
    node.is_list = HasRows(control);
    node.place = {left, top, place.width, place.height};
    return node;
  }
};

int NaturalWidth(const Control& control) {
  constexpr int kBrackets = 4;
  if (HasRows(control)) return kNarrowestList;
  if (dynamic_cast<const TextBox*>(&control)) return kTextBoxWidth;
  if (PercentOf(control)) return kBarWidth;
  if (const auto* image = dynamic_cast<const ImageBox*>(&control); image && !IsPageButton(*image)) {
    return DisplayWidth(Displayable(ImageText(*image)));
  }
  if (dynamic_cast<const MenuItem*>(&control)) {
    return DisplayWidth(Displayable(ControlText(control))) + 2;
  }
  if (ButtonCaption(control)) return DisplayWidth(Displayable(ControlText(control))) + kBrackets;
  if (IsTab(control) || IsPageButton(control)) return DisplayWidth(NameOf(control)) + 2;
  const auto* label = dynamic_cast<const Label*>(&control);
  if (label == nullptr) return DisplayWidth(Displayable(ControlText(control)));
  int widest = 0;
  for (const std::string& line : Wrap(label->Caption().View(), 1000)) {
    widest = std::max(widest, DisplayWidth(line));
  }
  return widest;
}

// Lays a tree out in one density.
class Placer {
 public:
  Placer(Density density, std::vector<PlacedControl>& placed)
      : density_(density), placed_(placed) {}

  int Width(const Node& node) const {
    if (IsLeaf(node)) return NaturalWidth(*node.control);
    int width = 0;
    const bool row = node.kind == Arrangement::Kind::kRow;
    for (const Node& part : node.parts) {
      width = row ? width + Width(part) + (width > 0 ? kGap : 0) : std::max(width, Width(part));
    }
    return width;
  }

  // The least height in that width.
  int Height(const Node& node, int width) const {
    if (IsLeaf(node)) return LeafHeight(*node.control, width);
    if (Flows(node)) return Flow(node, {0, 0, 0, width}, nullptr);
    int height = 0;
    if (StandsAsRow(node, width)) {
      const std::vector<int> widths = ShareWidth(node, width);
      for (std::size_t i = 0; i < node.parts.size(); ++i) {
        height = std::max(height, Height(node.parts[i], widths[i]));
      }
      return height;
    }
    for (std::size_t i = 0; i < node.parts.size(); ++i) {
      height += Height(node.parts[i], width) + SpaceBefore(node, i);
    }
    return height;
  }

  void Place(const Node& node, const Area& area) {
    if (IsLeaf(node)) {
      placed_.push_back({node.control, area});
    } else if (Flows(node)) {
      Flow(node, area, &placed_);
    } else if (StandsAsRow(node, area.width)) {
      PlaceRow(node, area);
    } else {
      PlaceStack(node, area);
    }
  }

 private:
  int LeafHeight(const Control& control, int width) const {
    if (HasRows(control)) {
      const auto rows = RowsOf(const_cast<Control&>(control));
      return 1 + (rows->HasHeadings() ? 1 : 0) + LeastRows(density_, rows->Count());
    }
    const auto* label = dynamic_cast<const Label*>(&control);
    if (label == nullptr || label->Caption().empty() || density_ == Density::kTight) return 1;
    return std::max(1, static_cast<int>(LabelLines(*label, width).size()));
  }

  static bool Flows(const Node& node) {
    return node.kind == Arrangement::Kind::kRow &&
           std::none_of(node.parts.begin(), node.parts.end(), [](const Node& part) {
             return !IsLeaf(part) || part.is_list || PercentOf(*part.control);
           });
  }

  bool StandsAsRow(const Node& node, int width) const {
    return node.kind == Arrangement::Kind::kRow && Width(node) <= width;
  }

  // From left to right, in as many lines as it takes. Returns their number.
  int Flow(const Node& node, const Area& area, std::vector<PlacedControl>* placed) const {
    int row = 0;
    int column = 0;
    int height = 0;
    for (const Node& part : node.parts) {
      const int width = std::min(Width(part), area.width);
      if (column > 0 && column + width > area.width) {
        row += height;
        column = height = 0;
      }
      const int lines = LeafHeight(*part.control, width);
      if (placed != nullptr) {
        placed->push_back({part.control, {area.row + row, area.column + column, lines, width}});
      }
      height = std::max(height, lines);
      column += width + kGap;
    }
    return row + height;
  }

  // Each gets what it needs, and what holds a list a part of the rest by its width in the window.
  std::vector<int> ShareWidth(const Node& node, int width) const {
    std::vector<int> widths;
    int rest = width - kGap * (static_cast<int>(node.parts.size()) - 1);
    long long growing = 0;
    for (const Node& part : node.parts) {
      widths.push_back(Width(part));
      rest -= widths.back();
      if (Grows(part)) growing += std::max(part.place.width, 1);
    }
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (!Grows(node.parts[i])) continue;
      widths[i] += static_cast<int>(1LL * rest * std::max(node.parts[i].place.width, 1) / growing);
    }
    return widths;
  }

  void PlaceRow(const Node& node, const Area& area) {
    const std::vector<int> widths = ShareWidth(node, area.width);
    int column = area.column;
    for (std::size_t i = 0; i < node.parts.size(); ++i) {
      const Node& part = node.parts[i];
      const int height = Grows(part) ? area.height : Height(part, widths[i]);
      Place(part, {area.row, column, height, widths[i]});
      column += widths[i] + kGap;
    }
  }

  int SpaceBefore(const Node& stack, std::size_t part) const {
    if (part == 0) return 0;
    if (IsLedByPageButton(stack.parts[part - 1])) return 1;  // the rule below them
    if (density_ != Density::kAiry) return 0;
    const Bounds& above = stack.parts[part - 1].place;
    const Node& below = stack.parts[part];
    const bool buttons = part + 1 == stack.parts.size() && HoldsButtons(below);
    return buttons || below.place.top - (above.top + above.height) >= kSpace_twips ? 1 : 0;
  }

  static bool IsLedByPageButton(const Node& node) {
    return IsLeaf(node) ? IsPageButton(*node.control) : IsLedByPageButton(node.parts[0]);
  }
  static bool HoldsButtons(const Node& node) {
    if (IsLeaf(node)) return ButtonCaption(*node.control).has_value() && !IsItem(node);
    return std::any_of(node.parts.begin(), node.parts.end(), HoldsButtons);
  }
  static bool IsItem(const Node& node) {
    return dynamic_cast<const MenuItem*>(node.control) != nullptr;
  }

  // What is left goes to the parts that grow, by their heights in the window; none gets more than
  // it has rows for.
  void PlaceStack(const Node& node, const Area& area) {
    std::vector<int> heights;
    int rest = area.height;
    for (std::size_t i = 0; i < node.parts.size(); ++i) {
      heights.push_back(Height(node.parts[i], area.width));
      rest -= heights.back() + SpaceBefore(node, i);
    }
    Grow(node, heights, rest);
    int row = area.row;
    for (std::size_t i = 0; i < node.parts.size(); ++i) {
      row += SpaceBefore(node, i);
      Place(node.parts[i], {row, area.column, heights[i], area.width});
      row += heights[i];
    }
  }

  // The rows that it could fill.
  int FullHeight(const Node& node, int height) const {
    if (!node.is_list) return Grows(node) ? 1'000'000 : height;
    const auto rows = RowsOf(*node.control);
    return std::max(height, 1 + (rows->HasHeadings() ? 1 : 0) + rows->Count());
  }

  void Grow(const Node& node, std::vector<int>& heights, int rest) const {
    while (rest > 0) {
      // The one that has least beside its height in the window.
      std::size_t next = heights.size();
      for (std::size_t i = 0; i < heights.size(); ++i) {
        const Node& part = node.parts[i];
        if (!Grows(part) || heights[i] >= FullHeight(part, heights[i])) continue;
        const auto share = [&](std::size_t of) {
          return 1000LL * heights[of] / std::max(node.parts[of].place.height, 1);
        };
        if (next == heights.size() || share(i) < share(next)) next = i;
      }
      if (next == heights.size()) return;
      ++heights[next];
      --rest;
    }
  }

  Density density_;
  std::vector<PlacedControl>& placed_;
};

Density DensityThatFits(const Node& tree, const Area& area) {
  std::vector<PlacedControl> unused;
  for (const Density density : {Density::kAiry, Density::kPlain}) {
    if (Placer(density, unused).Height(tree, area.width) <= area.height) return density;
  }
  return Density::kTight;
}

void PlaceIn(const Node& tree, const Area& area, std::vector<PlacedControl>& placed) {
  Placer(DensityThatFits(tree, area), placed).Place(tree, area);
}

void PlaceOverList(const Control& panel, const Area& page, Layout& layout) {
  constexpr int kFrameRows = 1;
  constexpr int kFrameColumns = 3;
  const auto tree = TreeBuilder().Build(panel, 0, 0);
  if (!tree) return;
  const Area room = page.Within(kFrameRows, kFrameColumns);
  std::vector<PlacedControl> unused;
  const Placer placer(Density::kAiry, unused);
  const int width = std::min(placer.Width(*tree), room.width);
  const int height = std::min(placer.Height(*tree, width), room.height);
  const Area inside{room.row + (room.height - height) / 2, room.column + (room.width - width) / 2,
                    height, width};
  layout.frames.push_back({inside.row - kFrameRows, inside.column - kFrameColumns,
                           height + 2 * kFrameRows, width + 2 * kFrameColumns});
  PlaceIn(*tree, inside, layout.controls);
}

}  // namespace

std::vector<std::string> LabelLines(const Label& label, int width) {
  const std::string_view caption = label.Caption().View();
  const int lines_in_window = label.Place().height / kTextLine_twips;
  if (lines_in_window < 2 && caption.find('\\') != std::string_view::npos) {
    return {FitPath(Displayable(caption), width)};
  }
  std::vector<std::string> lines = Wrap(caption, width);
  // A screen may have half the window's width.
  const auto most = static_cast<std::size_t>(std::max(2, 2 * lines_in_window));
  if (lines.size() > most) lines.resize(most);
  return lines;
}

Layout LayOut(const Form& form, const Area& area) {
  Layout layout;
  TreeBuilder builder;
  if (const auto tree = builder.Build(form, 0, 0)) PlaceIn(*tree, area, layout.controls);
  layout.framed_from = layout.controls.size();
  for (const Control* panel : builder.over_lists) PlaceOverList(*panel, area, layout);
  return layout;
}

Layout LayOutScrolled(const Form& form, const Area& area, int scrolled) {
  const auto is_text = [](const PlacedControl& placed) {
    return dynamic_cast<const Label*>(placed.control) != nullptr;
  };
  const int height = SizeOf(form, area.width).height;
  Layout layout = LayOut(form, {area.row, area.column, height, area.width});
  const int over = height - area.height;
  const bool has_list =
      std::any_of(layout.controls.begin(), layout.controls.end(),
                  [](const PlacedControl& placed) { return HasRows(*placed.control); });
  if (over <= 0 || has_list) return LayOut(form, area);
  layout.most_scrolled = over;
  scrolled = std::clamp(scrolled, 0, over);
  int end = area.row + area.height;
  for (PlacedControl& placed : layout.controls) {
    placed.area.row -= is_text(placed) ? scrolled : over;
    if (!is_text(placed)) end = std::min(end, placed.area.row);
  }
  for (PlacedControl& placed : layout.controls) {
    if (!is_text(placed)) continue;
    Area& place = placed.area;
    placed.first_line = std::max(area.row - place.row, 0);
    place.height = std::min(place.row + place.height, end) - place.row - placed.first_line;
    place.row += placed.first_line;
  }
  std::erase_if(layout.controls,
                [](const PlacedControl& placed) { return placed.area.height <= 0; });
  layout.framed_from = layout.controls.size();
  return layout;
}

CellSize SizeOf(const Form& form, int widest) {
  constexpr int kEndless = 1000;
  const auto tree = TreeBuilder().Build(form, 0, 0);
  if (!tree) return {};
  std::vector<PlacedControl> placed;
  Placer placer(Density::kAiry, placed);
  const int width = Grows(*tree) ? widest : std::min(placer.Width(*tree), widest);
  placer.Place(*tree, {0, 0, Grows(*tree) ? kEndless : placer.Height(*tree, width), width});
  int height = 0;
  for (const PlacedControl& each : placed)
    height = std::max(height, each.area.row + each.area.height);
  return {.width = width, .height = height};
}

}  // namespace tidemark
