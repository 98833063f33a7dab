#include "desktop/win32/popup_menu.h"

#include <optional>
#include <utility>
#include <vector>

#include "platform/unique_handle.h"

namespace tidemark {
namespace {

struct MenuPolicy {
  using Handle = HMENU;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { DestroyMenu(handle); }
};
using UniqueMenu = UniqueHandle<MenuPolicy>;

// For the next menu. All menus belong to the one user-interface thread.
std::optional<POINT> place;

std::vector<MenuItem*> VisibleItems(const Menu& menu) {
  std::vector<MenuItem*> items;
  for (Control* const control : menu.Controls()) {
    auto* const item = dynamic_cast<MenuItem*>(control);
    if (item != nullptr && item->Visible()) items.push_back(item);
  }
  return items;
}

// The number of an item is its index and 1: the platform's answer 0 means none.
UniqueMenu MakeMenu(const std::vector<MenuItem*>& items) {
  UniqueMenu menu(CreatePopupMenu());
  UINT_PTR number = 0;
  for (const MenuItem* const item : items) {
    const UINT kind = item->IsSeparator() ? MF_SEPARATOR : MF_STRING;
    const UINT state = item->Enabled() ? MF_ENABLED : MF_GRAYED;
    AppendMenuA(menu.Get(), kind | state, ++number, item->Caption().String().c_str());
  }
  return menu;
}

// Null when nothing was chosen.
MenuItem* Choose(HWND owner, const Menu& menu, POINT point) {
  const std::vector<MenuItem*> items = VisibleItems(menu);
  const UniqueMenu platform_menu = MakeMenu(items);
  const UINT side = GetSystemMetrics(SM_MENUDROPALIGNMENT) != 0 ? TPM_RIGHTALIGN : TPM_LEFTALIGN;

  SetForegroundWindow(owner);
  const int number =
      TrackPopupMenu(platform_menu.Get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON | side,
                     point.x, point.y, 0, owner, nullptr);
  // Without a further message a second menu of the notification area closes as soon as it opens.
  PostMessageA(owner, WM_NULL, 0, 0);
  return number > 0 ? items[static_cast<std::size_t>(number) - 1] : nullptr;
}

}  // namespace

MenuPlace::MenuPlace(POINT point) { place = point; }
MenuPlace::~MenuPlace() { place.reset(); }

void PopUp(HWND owner, Menu& menu, POINT point) {
  MenuItem* const chosen = Choose(owner, menu, point);
  if (chosen != nullptr) chosen->Click();
}

void PopUp(HWND owner, Menu& menu) {
  POINT point{};
  GetCursorPos(&point);
  PopUp(owner, menu, std::exchange(place, std::nullopt).value_or(point));
}

}  // namespace tidemark
