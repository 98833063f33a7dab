// The program's icon in the notification area of the task bar.
#pragma once

#include <optional>
#include <string>

#include "platform/unique_handle.h"
#include "platform/winapi.h"
#include "toolkit/tray_icon.h"

namespace tidemark {

struct IconPolicy {
  using Handle = HICON;
  static Handle Invalid() { return nullptr; }
  static void Close(Handle handle) { DestroyIcon(handle); }
};
using UniqueIcon = UniqueHandle<IconPolicy>;

// The icon of a file ("C:\...\tidemark.ico") in the size that the notification area shows; null
// when it can't be read.
UniqueIcon LoadTrayIcon(const std::string& icon_file);

// The message that a restarted shell sends to all top-level windows: time to AddAgain.
UINT TaskbarCreatedMessage();

// The shell keeps what is added until it is deleted; the destructor removes nothing.
class NotificationArea {
 public:
  // False when the shell refused. The icon and the window behind its handles stay the caller's; the
  // icon has to live as long as AddAgain may need it.
  bool Notify(TrayMessage message, const TrayIcon& icon);
  // Adds the icon that has been added, or was refused, and not deleted since, if any.
  void AddAgain();

 private:
  std::optional<TrayIcon> added_;
};

}  // namespace tidemark
