#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/win32/form_peers.h"
#include "desktop/win32/win32_front_end.h"
#include "toolkit/list_view.h"

namespace tidemark {
namespace {

struct Box {
  Form form{"box"};
  CommandButton first{&form, "first"};
  CommandButton second{&form, "second"};
  Timer timer{&form, "timer"};
  Box() {
    form.SetPlace({0, 0, 4500, 3000});
    first.SetPlace({300, 300, 1500, 390});
    first.SetCaption("&First");
    second.SetPlace({300, 900, 1500, 390});
    timer.SetEnabled(false);
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
  EXPECT_EQ(front_end.Run([&] {
    front_end.Show(box.form);
    PressFirst(front_end, box.form);
  }),
            0);
  EXPECT_TRUE(unwound);
  EXPECT_EQ(front_end.WindowHandle(box.form), nullptr);

  box.first.Clicked.Bind([] { throw std::runtime_error("a fault"); });
  const auto run = [&] {
    front_end.Show(box.form);
    PressFirst(front_end, box.form);
  };
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

TEST(Win32FrontEnd, TimersTickAtYieldsWhileTheyAreEnabled) {
  Win32FrontEnd front_end(".");
  Box box;
  int ticks = 0;
  box.timer.Tick.Bind([&] { ++ticks; });
  box.timer.SetInterval(30);
  front_end.Show(box.form);
  const auto yield_for = [&](ULONGLONG milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    while (GetTickCount64() < end) front_end.DoEvents();
  };
  yield_for(100);
  EXPECT_EQ(ticks, 0);
  box.timer.SetEnabled(true);
  yield_for(400);
  EXPECT_GE(ticks, 2);
  EXPECT_LE(ticks, 14);
}

TEST(Win32FrontEnd, WhoeverOnlyWaitsDoesNotBurnTheProcessor) {
  Win32FrontEnd front_end(".");
  Box box;
  front_end.Show(box.form);
  const auto processor_ms = [] {
    FILETIME unused{};
    FILETIME kernel{};
    FILETIME user{};
    GetThreadTimes(GetCurrentThread(), &unused, &unused, &kernel, &user);
    return (kernel.dwLowDateTime + user.dwLowDateTime) / 10000;
  };
  const ULONGLONG end = GetTickCount64() + 1000;
  const DWORD before = processor_ms();
  while (GetTickCount64() < end) front_end.DoEvents();
  EXPECT_LT(processor_ms() - before, 500U);
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

TEST(FormPeers, TheKeyboardReachesWhatIsSeenInReadingOrder) {
  Resources resources(".");
  Form form("form");
  form.SetPlace({0, 0, 6000, 6000});
  PictureBox panel(&form, "panel");
  panel.SetPlace({0, 1500, 6000, 4500});
  struct Placed {
    const char* name;
    Control* container;
    Bounds place;
  };
  std::vector<std::unique_ptr<CommandButton>> buttons;
  for (const Placed& placed :
       {Placed{"last", &panel, {300, 2000, 900, 300}},
        Placed{"right", &panel, {3000, 60, 900, 300}}, Placed{"left", &panel, {300, 100, 900, 300}},
        Placed{"hidden", &panel, {300, 3000, 900, 300}},
        Placed{"disabled", &panel, {300, 3000, 900, 300}},
        Placed{"outside", &form, {300, 9000, 900, 300}},
        Placed{"top", &form, {300, 300, 900, 300}}}) {
    buttons.push_back(std::make_unique<CommandButton>(placed.container, placed.name));
    buttons.back()->SetPlace(placed.place);
  }
  ListView selection(&panel, "selection");
  ListView status(&panel, "status");
  for (Control* list : {&selection, &status}) list->SetPlace({300, 1000, 900, 300});
  form.SetVisible(true);
  form.Find("hidden")->SetVisible(false);
  form.Find("disabled")->SetEnabled(false);
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
  panel.SetVisible(false);
  EXPECT_EQ(names(), "top ");
  DestroyWindow(window);
}

TEST(Resources, NeighboursStayNeighboursAtAnyDotsPerInch) {
  Resources resources(".");
  for (const int dots : {96, 120, 144, 192}) {
    resources.SetDotsPerInch(dots);
    EXPECT_EQ(resources.Pixels(1440), dots);
    for (int left = 0; left < 300; left += 7) {
      EXPECT_EQ(resources.PixelsOf({left, 0, 95, 10}).right,
                resources.PixelsOf({left + 95, 0, 95, 10}).left);
    }
  }
}

}  // namespace
}  // namespace tidemark
