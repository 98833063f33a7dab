// The junk scan in the real window.
#include <benchmark/benchmark.h>

#include "desktop/win32/win32_front_end.h"
#include "generated_pc.h"
#include "junk_bench.h"
#include "shell/wiring.h"

namespace tidemark::bench {
namespace {

void BM_JunkScanInWindow(benchmark::State& state) {
  TestPc& pc = PcWithFolders(kJunkFolders);
  Win32FrontEnd front_end(pc.program_folder());
  frmMain window(front_end, Application{.folder = pc.program_folder()});
  BindHandlers(window);
  front_end.Run([&] {
    front_end.Show(window.form);
    ScanTree(window, pc, state);
    front_end.End();
  });
}
BENCHMARK(BM_JunkScanInWindow)->Apply(OfJunkScan);

}  // namespace
}  // namespace tidemark::bench
