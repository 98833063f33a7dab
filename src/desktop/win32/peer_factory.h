// Which peer a control gets.
#pragma once

#include <memory>

#include "desktop/win32/peer.h"

namespace tidemark {

// Null for a control that shows nothing by itself: timers, menus, directory listings.
std::unique_ptr<Peer> MakePeer(Control& control, Resources& resources, HWND parent);

}  // namespace tidemark
