// A peer keeps one window of the platform in line with one control of the toolkit, and turns the
// window's messages into the control's events. It decides nothing.
//
// A control tells nobody that it has changed. At the pace of the eye the front end asks every peer
// that can be seen to Refresh: the peer compares the control with what it has shown last and
// touches its window only where they differ. A control whose form is not shown costs nothing.
#pragma once

#include <memory>
#include <optional>

#include "desktop/win32/resources.h"
#include "platform/winapi.h"
#include "toolkit/control.h"

namespace tidemark {

// What a handler of a message answers; no value: the window's own procedure goes on with it.
using Answer = std::optional<LRESULT>;

class Peer {
 public:
  // The resources outlive the peer. The window is made by the derived class's constructor, as a
  // child of `parent`, not yet visible, of no size.
  Peer(Control& control, Resources& resources);
  virtual ~Peer();  // destroys the window
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  // The peer of a window; null when it has none.
  static Peer* Of(HWND window);
  // Hands a message from a child window's parent back to the child's peer: WM_COMMAND, WM_NOTIFY,
  // WM_DRAWITEM, the WM_CTLCOLOR family.
  static Answer HandBack(UINT message, WPARAM wparam, LPARAM lparam);

  Control& GetControl() const { return control_; }
  HWND Window() const { return window_; }
  // Whether the window is to be shown. What a procedure has moved out of sight is hidden: the edge
  // of a panel beside the page would be in the way.
  bool IsInSight() const;

  // Brings the window in line with the control. The base does what all controls have: place (in
  // pixels, by the resources' dots per inch), visible, enabled, font, tool tip, accessible name.
  // Derived classes call it first. Cheap when nothing has changed.
  virtual void Refresh();
  // Everything has to be made anew at the next Refresh: the dots per inch have changed, or the
  // system's colours.
  virtual void Forget();
  // From now on no message reaches the peer and it touches its control no more; the control may go.
  void Abandon();

  // Messages that the platform sends to the window's parent, handed back to the peer they are
  // about: WM_COMMAND with its notification code, WM_NOTIFY, WM_DRAWITEM, WM_CTLCOLOR.... A handler
  // that raises an event of the control does so as its last act: the peer may be gone when it
  // returns.
  virtual Answer OnCommand(WORD /*notification*/) { return {}; }
  virtual Answer OnNotify(NMHDR& /*header*/) { return {}; }
  virtual Answer OnDraw(const DRAWITEMSTRUCT& /*item*/) { return {}; }
  // The colours of a control that the platform paints: the answer is a brush.
  virtual Answer OnColor(HDC /*context*/) { return {}; }
  // Messages of the window itself, before its own procedure sees them.
  virtual Answer OnMessage(UINT /*message*/, WPARAM /*wparam*/, LPARAM /*lparam*/) { return {}; }

  // Whether the keyboard can reach it.
  virtual bool TakesFocus() const { return false; }
  // The text that holds its access key behind an "&"; a caption, or the accessible name.
  virtual Text AccessKeyText() const { return control_.AccessibleName(); }
  // As Alt and the access key do it: focus, and a click where that is what a click does.
  virtual void OnAccessKey();
  // Enter, while it has the focus. False: it means nothing here.
  virtual bool OnEnter() { return false; }
  // Its role for screen readers, by the platform's ROLE_SYSTEM_ numbers; 0: that of its window
  // class.
  virtual long Role() const { return 0; }

 protected:
  // Makes the child window of a window class of the platform, or of the front end's own, and
  // subclasses it, so that OnMessage is called. Called once, by the derived class's constructor.
  void CreateWindowOf(const char* window_class, DWORD style, DWORD extended_style, HWND parent);

  // The tool tip's text has changed. The base shows it anywhere over the window; a list shows its
  // own, row by row.
  virtual void ShowToolTip(const Text& text);

  Control& control_;
  Resources& resources_;
  HWND window_ = nullptr;

 private:
  struct Shown;  // what the base has brought to the window

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                                    UINT_PTR id, DWORD_PTR peer);
  LRESULT OnProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  void RefreshPlace();
  void RefreshText();

  std::unique_ptr<Shown> shown_;
};

}  // namespace tidemark
