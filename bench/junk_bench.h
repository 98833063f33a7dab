// What the junk scan's benchmarks share: those without a window and the one in the real window.
#pragma once

#include <benchmark/benchmark.h>

#include "tests/support/test_pc.h"
#include "window/frmMain.h"

namespace tidemark::bench {

inline constexpr int kJunkFolders = 20'000;  // with ten files each

void OfJunkScan(benchmark::internal::Benchmark* benchmark);

// Scans PcWithFolders() with all shipped patterns and excluded folders, the panels of a scan up.
void ScanTree(frmMain& window, const TestPc& pc, benchmark::State& state);

}  // namespace tidemark::bench
