#include "tests/desktop/win32/desktop_pc.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "scan/results.h"
#include "shell/main_window.h"

namespace tidemark {
namespace {

DesktopPc* running = nullptr;  // the timer's procedure gets nothing of ours

}  // namespace

DesktopPc::DesktopPc()
    : front_end(pc.program_folder()),
      window(front_end, Application{.folder = pc.program_folder()}) {
  BindHandlers(window);
  // What the program's own start-up entry points at.
  pc.MakeFile(pc.program_folder() + "\\tidemark.exe");
}

DesktopPc::~DesktopPc() { running = nullptr; }

void DesktopPc::When(std::function<bool()> condition, std::function<void()> act) {
  steps_.push_back({std::move(condition), std::move(act)});
}

void DesktopPc::Run(const std::function<void()>& start) {
  RunScript([&] {
    front_end.Show(window.form);
    start();
  });
}

void DesktopPc::RunProgram() {
  RunScript([&] { Main(window); });
}

void DesktopPc::RunScript(const std::function<void()>& entry) {
  running = this;
  step_since_ms_ = GetTickCount64();
  constexpr UINT kPause_ms = 15;
  const UINT_PTR timer = SetTimer(nullptr, 0, kPause_ms, OnTimer);
  front_end.Run(entry);
  KillTimer(nullptr, timer);
  running = nullptr;
  EXPECT_EQ(next_step_, steps_.size()) << "the window was closed before the script had ended";
}

void CALLBACK DesktopPc::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  if (running != nullptr) running->RunStep();
}

void DesktopPc::RunStep() {
  constexpr ULONGLONG kLongest_ms = 30000;
  if (next_step_ == steps_.size()) return;
  if (steps_[next_step_].condition()) {
    const auto act = steps_[next_step_++].act;
    step_since_ms_ = GetTickCount64();
    act();
  } else if (GetTickCount64() - step_since_ms_ > kLongest_ms) {
    ADD_FAILURE() << "step " << next_step_ + 1 << " did not come";
    next_step_ = steps_.size();
    CloseWindow();
  }
}

void DesktopPc::PostPress(HWND target, POINT place) const {
  const LPARAM where = MAKELPARAM(place.x, place.y);
  PostMessageA(target, WM_LBUTTONDOWN, MK_LBUTTON, where);
  PostMessageA(target, WM_LBUTTONUP, 0, where);
}

void DesktopPc::Press(const Control& control) const { PostPress(Window(control), {6, 6}); }

void DesktopPc::PressRow(const ListView& list, int row) const {
  RECT place{LVIR_LABEL, 0, 0, 0};
  SendMessageA(Window(list), LVM_GETITEMRECT, static_cast<WPARAM>(row - 1),
               reinterpret_cast<LPARAM>(&place));
  PostPress(Window(list), {place.left + 4, (place.top + place.bottom) / 2});
}

void DesktopPc::PressTick(const ListView& list, int row) const {
  RECT place{LVIR_BOUNDS, 0, 0, 0};
  SendMessageA(Window(list), LVM_GETITEMRECT, static_cast<WPARAM>(row - 1),
               reinterpret_cast<LPARAM>(&place));
  PostPress(Window(list), {place.left + 9, (place.top + place.bottom) / 2});
}

void DesktopPc::CloseWindow() const {
  PostMessageA(front_end.WindowOf(window.form), WM_CLOSE, 0, 0);
}

bool DesktopPc::TabbedTo(const Control& control) const {
  if (GetFocus() == Window(control)) return true;
  if (IsShown(control)) Type(VK_TAB);
  return false;
}

HWND DesktopPc::Window(const Control& control) const { return front_end.WindowOf(control); }

bool DesktopPc::IsShown(const Control& control) const {
  return IsWindowVisible(Window(control)) != FALSE;
}

std::string DesktopPc::TextOf(const Control& control) const {
  std::array<char, 1024> text{};
  GetWindowTextA(Window(control), text.data(), static_cast<int>(text.size()));
  return text.data();
}

int DesktopPc::RowsOf(const ListView& list) const {
  return static_cast<int>(SendMessageA(Window(list), LVM_GETITEMCOUNT, 0, 0));
}

std::string DesktopPc::CellOf(const ListView& list, int row, int column) const {
  std::array<char, 1024> text{};
  LVITEMA item{};
  item.iSubItem = column - 1;
  item.pszText = text.data();
  item.cchTextMax = static_cast<int>(text.size());
  SendMessageA(Window(list), LVM_GETITEMTEXTA, static_cast<WPARAM>(row - 1),
               reinterpret_cast<LPARAM>(&item));
  return text.data();
}

bool DesktopPc::IsTicked(const ListView& list, int row) const {
  constexpr LRESULT kTicked = 2;
  const LRESULT state = SendMessageA(Window(list), LVM_GETITEMSTATE, static_cast<WPARAM>(row - 1),
                                     LVIS_STATEIMAGEMASK);
  return state >> 12 == kTicked;
}

}  // namespace tidemark
