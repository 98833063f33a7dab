// The same scan with no window and in the real window of Windows, and how soon the window answers.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "desktop/win32/win32_front_end.h"
#include "generated_pc.h"
#include "scan/results.h"
#include "scan/scan.h"
#include "shell/pages.h"
#include "shell/wiring.h"
#include "toolkit/script_front_end.h"
#include "window/frmMain.h"
#include "window/panels.h"

namespace tidemark::bench {
namespace {

constexpr int kKeys = 20'000;

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

void BM_ScanWithoutWindow(benchmark::State& state) {
  TestPc& pc = PcOfSize(kKeys);
  ScriptFrontEnd front_end;
  frmMain window(front_end, Application{.folder = pc.program_folder()});
  BindHandlers(window);
  front_end.Show(window.form);
  for ([[maybe_unused]] auto _ : state) cmdScanNow_Click(window);
  state.counters["findings"] = window.ProblemCount;
}

// A window that is on the screen for as long as the object lives.
class ShownWindow {
 public:
  explicit ShownWindow(TestPc& pc)
      : front_end(pc.program_folder()),
        window(front_end, Application{.folder = pc.program_folder()}) {
    BindHandlers(window);
    front_end.Show(window.form);
    front_end.DoEvents();
  }
  ~ShownWindow() {
    // The person's way out, but for the end of the process.
    window.form.Unload.Bind([] {});
    front_end.Unload(window.form);
  }

  Win32FrontEnd front_end;
  frmMain window;
};

void BM_ScanInWindow(benchmark::State& state) {
  ShownWindow shown(PcOfSize(kKeys));
  for ([[maybe_unused]] auto _ : state) cmdScanNow_Click(shown.window);
  state.counters["findings"] = shown.window.ProblemCount;
}

// From the click that another thread posts in the middle of a scan to its handler.
void BM_AnswerToStop(benchmark::State& state) {
  ShownWindow shown(PcOfSize(kKeys));
  frmMain& window = shown.window;
  Clock::time_point pressed;
  double longest = 0;
  for ([[maybe_unused]] auto _ : state) {
    double answered = 0;
    window.cmdStop.Clicked.Bind([&] {
      answered = SecondsSince(pressed);
      cmdStop_Click(window);
    });
    const HWND button = shown.front_end.WindowOf(window.cmdStop);
    std::thread person([&pressed, button] {
      std::this_thread::sleep_for(std::chrono::milliseconds(250));
      pressed = Clock::now();
      PostMessageA(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(6, 6));
      PostMessageA(button, WM_LBUTTONUP, 0, MAKELPARAM(6, 6));
    });
    cmdScanNow_Click(window);
    person.join();
    state.SetIterationTime(answered);
    longest = std::max(longest, answered);
  }
  state.counters["longest_ms"] = longest * 1000;
}

// A page down over 100,000 findings, with the repaint that follows.
void BM_ScrollProblems(benchmark::State& state) {
  ShownWindow shown(PcOfSize(kKeys));
  ListView& list = shown.window.lvProblems;
  for (int row = 1; row <= 100'000; ++row) {
    ListItem* item = list.Add("K" + std::to_string(row), "HKEY_CLASSES_ROOT\\CLSID\\{0000}");
    item->SetSubItem(kValueData, "C:\\gone\\library.dll");
  }
  HideAllFrames(shown.window);
  shown.window.picClear.SetVisible(true);
  const HWND real_list = shown.front_end.WindowOf(list);
  for ([[maybe_unused]] auto _ : state) {
    SendMessageA(real_list, WM_VSCROLL, SB_PAGEDOWN, 0);
    UpdateWindow(real_list);
    shown.front_end.DoEvents();
  }
  list.Clear();
}

// In this order, so that the two of the pair run one after the other.
BENCHMARK(BM_ScanWithoutWindow)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_ScanInWindow)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_AnswerToStop)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(10);
BENCHMARK(BM_ScrollProblems)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tidemark::bench
