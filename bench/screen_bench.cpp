// The same scan with no screen and with the full screen of a terminal up, which another thread
// reads as a terminal does.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>

#include "desktop/terminal/screen/curses_screen.h"
#include "desktop/terminal/screen/screen_front_end.h"
#include "generated_pc.h"
#include "scan/scan.h"
#include "shell/pages.h"
#include "shell/wiring.h"
#include "toolkit/script_front_end.h"
#include "window/frmMain.h"

namespace tidemark::bench {
namespace {

constexpr int kKeys = 200'000;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

// A pseudo-terminal of 120 columns and 40 rows.
class Terminal {
 public:
  Terminal() : master_(posix_openpt(O_RDWR | O_NOCTTY)) {
    grantpt(master_);
    unlockpt(master_);
    setenv("TERM", "xterm-256color", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    const winsize size = {.ws_row = 40, .ws_col = 120, .ws_xpixel = 0, .ws_ypixel = 0};
    program_side.reset(std::fopen(ptsname(master_), "r+"));
    ioctl(fileno(program_side.get()), TIOCSWINSZ, &size);
    reader_ = std::thread([this] {
      std::array<char, 4096> bytes;
      for (ssize_t count = 0; (count = read(master_, bytes.data(), bytes.size())) > 0;) {
        bytes_shown += count;
      }
    });
  }
  ~Terminal() {
    program_side.reset();
    reader_.join();
    close(master_);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  std::unique_ptr<std::FILE, CloseFile> program_side;
  std::atomic<long> bytes_shown = 0;

 private:
  int master_;
  std::thread reader_;
};

void BM_ScanWithoutScreen(benchmark::State& state) {
  TestPc& pc = PcOfSize(kKeys);
  ScriptFrontEnd front_end;
  frmMain window(front_end, Application{.folder = pc.program_folder()});
  BindHandlers(window);
  front_end.Show(window.form);
  for ([[maybe_unused]] auto _ : state) cmdScanNow_Click(window);
  state.counters["findings"] = window.ProblemCount;
}

void BM_ScanOnScreen(benchmark::State& state) {
  TestPc& pc = PcOfSize(kKeys);
  Terminal terminal;
  {
    CursesScreen screen(terminal.program_side.get(), terminal.program_side.get());
    ScreenFrontEnd front_end(screen);
    frmMain window(front_end, Application{.folder = pc.program_folder()});
    BindHandlers(window);
    front_end.Run(window.form, [&] {
      front_end.Show(window.form);
      for ([[maybe_unused]] auto _ : state) cmdScanNow_Click(window);
      state.counters["findings"] = window.ProblemCount;
      front_end.End();
    });
  }
  state.counters["bytes_shown"] = static_cast<double>(terminal.bytes_shown);
}

// In this order, so that the two of the pair run one after the other.
BENCHMARK(BM_ScanWithoutScreen)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScanOnScreen)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tidemark::bench
