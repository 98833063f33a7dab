#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "desktop/win32/form_peers.h"
#include "desktop/win32/win32_front_end.h"
#include "desktop/win32/window_metrics.h"
#include "toolkit/list_view.h"
#include "toolkit/timer.h"
#include "window/dialogs.h"

namespace tidemark {
namespace {

struct Box {
  Form form{"box"};
  CommandButton first{&form, "first"};
  CommandButton second{&form, "second"};
  Box() {
    form.SetPlace({0, 0, 4500, 3000});
    first.SetPlace({300, 300, 1500, 390});
    first.SetCaption("&First");
    second.SetPlace({300, 900, 1500, 390});
  }
};

HWND ButtonWindow(FrontEnd& front_end, const Form& form, const char* caption) {
  return FindWindowExA(front_end.WindowHandle(form), nullptr, "BUTTON", caption);
}

void PressFirst(FrontEnd& front_end, const Form& form) {
  PostMessageA(ButtonWindow(front_end, form, "&First"), BM_CLICK, 0, 0);
}

TEST(Win32FrontEnd, AHandlerMayUnloadAndDestroyTheFormThatIsClicked) {
  Win32FrontEnd front_end(".");
  auto box = std::make_unique<Box>();
  int unloaded = 0;
  box->form.Unload.Bind([&] { ++unloaded; });
  box->first.Clicked.Bind([&] {
    front_end.Unload(box->form);
    box.reset();
  });
  front_end.Show(box->form);
  PressFirst(front_end, box->form);
  while (box) front_end.DoEvents();
  EXPECT_EQ(unloaded, 1);
}

// The end of the process and any other exception pass all procedures and loops on their way out.
TEST(Win32FrontEnd, WhatAHandlerThrowsUnwindsTheLoopsBeneath) {
  Win32FrontEnd front_end(".");
  Box box;
  bool unwound = false;
  box.first.Clicked.Bind([&] {
    struct Guard {
      bool& flag;
      ~Guard() { flag = true; }
    } const guard{unwound};
    PostMessageA(front_end.WindowHandle(box.form), WM_CLOSE, 0, 0);
    while (true) front_end.DoEvents();  // as a scan does
  });
  box.form.Unload.Bind([&] { front_end.End(); });
  const auto run = [&] {
    front_end.Show(box.form);
    PressFirst(front_end, box.form);
  };
  EXPECT_EQ(front_end.Run(run), 0);
  EXPECT_TRUE(unwound);
  EXPECT_EQ(front_end.WindowHandle(box.form), nullptr);

  box.first.Clicked.Bind([] { throw std::runtime_error("a fault"); });
  EXPECT_THROW(front_end.Run(run), std::runtime_error);
}

TEST(Win32FrontEnd, AFormIsLoadedOnceAndAgainAfterItsFrameHasClosedIt) {
  Win32FrontEnd front_end(".");
  Box box;
  int loaded = 0;
  box.form.Load.Bind([&] { ++loaded; });
  box.form.SetTopmost(true);
  front_end.Show(box.form);
  EXPECT_NE(GetWindowLongA(front_end.WindowHandle(box.form), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
  front_end.Show(box.form);
  EXPECT_EQ(loaded, 1);
  PostMessageA(front_end.WindowHandle(box.form), WM_CLOSE, 0, 0);
  while (front_end.WindowHandle(box.form) != nullptr) front_end.DoEvents();
  EXPECT_FALSE(box.form.Visible());
  front_end.Show(box.form);
  EXPECT_EQ(loaded, 2);
  EXPECT_NE(ButtonWindow(front_end, box.form, "&First"), nullptr);
}

TEST(Win32FrontEnd, AQuestionIsClosedByAnAnswerAlone) {
  Win32FrontEnd front_end(".");
  frmMessBox box(".");
  std::string pressed;
  for (CommandButton* button : {&box.cmdYes, &box.cmdNo, &box.cmdOK}) {
    button->Clicked.Bind([&pressed, button] { pressed += button->Caption().View(); });
  }
  const auto has_close_button = [&] {
    front_end.Show(box.form);
    return (GetWindowLongA(front_end.WindowHandle(box.form), GWL_STYLE) & WS_SYSMENU) != 0;
  };
  EXPECT_TRUE(has_close_button()) << "a notice has";
  box.form.SetQuestion(true);
  box.cmdOK.SetVisible(false);
  EXPECT_FALSE(has_close_button());
  const HWND window = front_end.WindowHandle(box.form);
  PostMessageA(window, WM_CLOSE, 0, 0);
  for (const auto& [message, key] : {std::pair{WM_KEYDOWN, VK_ESCAPE},
                                     {WM_CHAR, 'x'},
                                     {WM_CHAR, 'y'},
                                     {WM_CHAR, 'N'},
                                     {WM_KEYDOWN, VK_RETURN}}) {
    PostMessageA(window, static_cast<UINT>(message), static_cast<WPARAM>(key), 1);
  }
  const ULONGLONG end = GetTickCount64() + 300;
  while (GetTickCount64() < end) front_end.DoEvents();
  EXPECT_EQ(front_end.WindowHandle(box.form), window);
  EXPECT_EQ(pressed, "&Yes&No&No") << "and Esc pressed none";
}

TEST(Win32FrontEnd, WhoeverWaitsDoesNothingUntilSomethingHappens) {
  Win32FrontEnd front_end(".");
  Box box;
  Timer timer(&box.form, "timer");
  timer.SetInterval(700);
  timer.SetEnabled(true);
  bool over = false;
  timer.Tick.Bind([&over] { over = true; });
  front_end.Show(box.form);
  int rounds = 0;
  for (; !over; ++rounds) front_end.WaitForEvents();
  EXPECT_LT(rounds, 50) << "the window's own messages, and the tick";
}

TEST(Win32FrontEnd, AnotherDisplayGivesTheWindowAndItsControlsAnotherSize) {
  Win32FrontEnd front_end(".");
  Box box;
  front_end.Show(box.form);
  const HWND window = front_end.WindowHandle(box.form);
  const HWND button = ButtonWindow(front_end, box.form, "&First");
  for (const int dots : {192, 144, 96}) {
    RECT suggested{0, 0, 500, 500};
    SendMessageA(window, WM_DPICHANGED, MAKEWPARAM(dots, dots),
                 reinterpret_cast<LPARAM>(&suggested));
    RECT client{};
    GetClientRect(window, &client);
    EXPECT_EQ(client.right, 4500 * dots / 1440);
    GetClientRect(button, &client);
    EXPECT_EQ(client.bottom, 390 * dots / 1440);
    EXPECT_EQ(front_end.TwipsPerPixelX(box.form), 1440.0 / dots);
  }
}

TEST(Win32FrontEnd, AFormLargerThanTheDisplayScrollsToWhatHasTheFocus) {
  Win32FrontEnd front_end(".");
  Box box;
  CommandButton far_off(&box.form, "far_off");
  far_off.SetCaption("&Far");
  far_off.SetPlace({90000, 60000, 1500, 390});
  box.form.SetPlace({0, 0, 92000, 61000});
  front_end.Show(box.form);
  const HWND window = front_end.WindowHandle(box.form);
  RECT place{};
  GetWindowRect(window, &place);
  const RECT work = WorkAreaOf(window);
  EXPECT_TRUE(place.left >= work.left && place.right <= work.right && place.top >= work.top &&
              place.bottom <= work.bottom);
  const HWND button = ButtonWindow(front_end, box.form, "&Far");
  const auto in_sight = [&] {
    RECT common{};
    const RECT seen = PlaceOnScreen(button);
    return IntersectRect(&common, &seen, &place) != FALSE && EqualRect(&common, &seen) != FALSE;
  };
  EXPECT_FALSE(in_sight());
  SetFocus(button);
  const ULONGLONG end = GetTickCount64() + 5000;
  while (!in_sight() && GetTickCount64() < end) front_end.DoEvents();
  EXPECT_TRUE(in_sight());
  for (const UINT bar : {WM_VSCROLL, WM_HSCROLL}) SendMessageA(window, bar, SB_TOP, 0);
  EXPECT_FALSE(in_sight());
  EXPECT_TRUE(IsWindowVisible(ButtonWindow(front_end, box.form, "&First")));
}

TEST(FormPeers, TheKeyboardReachesWhatIsSeenInReadingOrder) {
  Resources resources(".");
  Form form("form");
  form.SetPlace({0, 0, 6000, 6000});
  PictureBox panel(&form, "panel");
  panel.SetPlace({0, 1500, 6000, 4500});
  CommandButton last(&panel, "last"), right(&panel, "right"), left(&panel, "left");
  CommandButton hidden(&panel, "hidden"), outside(&form, "outside"), top(&form, "top");
  ListView selection(&panel, "selection"), status(&panel, "status");
  last.SetPlace({300, 2000, 900, 300});
  right.SetPlace({3000, 60, 900, 300});
  left.SetPlace({300, 100, 900, 300});
  hidden.SetPlace({300, 3000, 900, 300});
  outside.SetPlace({300, 9000, 900, 300});
  top.SetPlace({300, 300, 900, 300});
  for (Control* list : {&selection, &status}) list->SetPlace({300, 1000, 900, 300});
  form.SetVisible(true);
  hidden.SetVisible(false);
  const HWND window = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 600, 600, nullptr, nullptr,
                                      nullptr, nullptr);
  FormPeers peers(form, resources, window);
  const auto names = [&] {
    peers.Refresh();
    std::string joined;
    for (const Peer* peer : peers.Reachable()) joined += peer->GetControl().Name() + " ";
    return joined;
  };
  EXPECT_EQ(names(), "top left right status last ");
  selection.BringToFront();
  EXPECT_EQ(names(), "top left right selection last ");
  left.SetEnabled(false);
  EXPECT_EQ(names(), "top right selection last ");
  DestroyWindow(window);
}

}  // namespace
}  // namespace tidemark
