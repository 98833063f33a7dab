#include "controls/GetFolder.h"

#include <algorithm>
#include <utility>

namespace tidemark {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kGap = 3 * kTwipsPerPixel;  // between text box and button
constexpr int kButtonWidth = 25 * kTwipsPerPixel;

}  // namespace

GetFolder::GetFolder(Control* container, std::string name, FrontEnd& front_end)
    : Control(container, std::move(name)),
      txtFolder(this, "txtFolder"),
      cmdBrowse(this, "cmdBrowse"),
      front_end_(front_end) {
  cmdBrowse.SetCaption("...");
  cmdBrowse.SetAccessibleName("Browse Folders");
  cmdBrowse.SetPlace({0, 0, kButtonWidth, 0});
  txtFolder.Changed.Bind([this] { Change(); });
  cmdBrowse.Clicked.Bind([this] { cmdBrowse_Click(); });
}

void GetFolder::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
  txtFolder.SetEnabled(enabled);
  cmdBrowse.SetEnabled(enabled);
}

tidemark::Text GetFolder::BrowseForFolderPath(std::string_view title) {
  return front_end_.BrowseForFolder(title);
}

void GetFolder::cmdBrowse_Click() {
  tidemark::Text path = BrowseForFolderPath("Browse Folders");
  if (!path.empty()) txtFolder.SetText(std::move(path));
}

void GetFolder::UserKeyDown(int key_code, int shift) {
  constexpr int kDownArrow = 40;
  constexpr int kAlt = 4;
  if (Enabled() && key_code == kDownArrow && shift == kAlt) cmdBrowse_Click();
}

void GetFolder::UserShow() { txtFolder.SetToolTipText(ToolTipText()); }

void GetFolder::Resize() {
  const Bounds& place = Place();
  const int button_width = cmdBrowse.Place().width;
  cmdBrowse.SetPlace({place.width - button_width, 0, button_width, place.height});
  txtFolder.SetPlace({0, 0, std::max(place.width - button_width - kGap, 0), place.height});
}

Bounds GetFolder::Line() const {
  constexpr int kBesideButton = 2 * kTwipsPerPixel;
  return {cmdBrowse.Place().left - kBesideButton, 0, kTwipsPerPixel, Place().height};
}

}  // namespace tidemark
