// The lists under 100,000 findings.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "scan/results.h"
#include "toolkit/script_front_end.h"
#include "window/frmMain.h"

namespace tidemark::bench {
namespace {

struct FilledWindow {
  explicit FilledWindow(int findings) {
    LoadReasons(window);
    window.CurrentLocation = "CLSID";
    window.lvScan.Add("CLSID", "ClassIDs");
    for (int number = 0; number < findings; ++number) Add(number);
  }
  void Add(int number) {
    const std::string key = "CLSID\\{0002DF01-0000-0000-C000-000000000046}\\InprocServer32";
    AddtoList(window, HKEY_CLASSES_ROOT, key, "",
              "C:\\Program Files\\Gone\\" + std::to_string(number), REG_SZ,
              window.Reasons[kInvalidPath]);
  }
  ScriptFrontEnd front_end;
  frmMain window{front_end, Application{}};
};

// The cost of adding findings to a list that holds so many already.
void BM_AddFindings(benchmark::State& state) {
  constexpr int kBatch = 1000;
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    auto filled = std::make_unique<FilledWindow>(static_cast<int>(state.range(0)));
    state.ResumeTiming();
    for (int number = 0; number < kBatch; ++number) filled->Add(number);
    state.PauseTiming();
    filled.reset();
    state.ResumeTiming();
  }
  state.counters["time_per_finding"] = benchmark::Counter(
      kBatch, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_AddFindings)->Arg(0)->Arg(99'000)->Iterations(10)->Unit(benchmark::kMillisecond);

void BM_ClickInFound(benchmark::State& state) {
  FilledWindow filled(static_cast<int>(state.range(0)));
  filled.window.lvFound.Add("CLSID", "ClassIDs");
  filled.window.lvFound.Select(filled.window.lvFound.Item(1));
  for ([[maybe_unused]] auto _ : state) lvFound_Click(filled.window);
}
BENCHMARK(BM_ClickInFound)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tidemark::bench
