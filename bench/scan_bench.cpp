// A full scan beside a bare walk over the same keys and values with the same calls, which judges
// nothing.
#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "generated_pc.h"
#include "platform/unique_handle.h"
#include "scan/results.h"
#include "scan/scan.h"
#include "shell/status.h"
#include "shell/wiring.h"
#include "toolkit/script_front_end.h"
#include "window/frmMain.h"

namespace tidemark::bench {
namespace {

class BareWalk {
 public:
  void Walk(const std::string& path) {
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT, path.c_str(), 0, 0x2003F, &opened) != ERROR_SUCCESS)
      return;
    const UniqueKey key(opened);
    ++keys;
    DWORD sub_keys = 0;
    DWORD value_count = 0;
    RegQueryInfoKeyA(key.Get(), nullptr, nullptr, nullptr, &sub_keys, nullptr, nullptr,
                     &value_count, nullptr, nullptr, nullptr, nullptr);
    for (DWORD index = 0; index < value_count; ++index) WalkValue(key.Get(), index);
    for (DWORD index = 0; index < sub_keys; ++index) {
      std::array<char, 261> name{};
      RegEnumKeyA(key.Get(), index, name.data(), name.size());
      Walk(path + "\\" + name.data());
    }
  }

  long keys = 0;
  long values = 0;
  long files = 0;

 private:
  void WalkValue(HKEY key, DWORD index) {
    std::array<char, 261> name{};
    std::array<char, 1024> data{};
    DWORD name_size = name.size();
    DWORD data_size = data.size() - 1;
    DWORD type = 0;
    RegEnumValueA(key, index, name.data(), &name_size, nullptr, &type,
                  reinterpret_cast<BYTE*>(data.data()), &data_size);
    ++values;
    if (std::string_view(data.data()).find(":\\") != std::string_view::npos &&
        GetFileAttributesA(data.data()) != INVALID_FILE_ATTRIBUTES) {
      ++files;
    }
  }
};

void CountPerKey(benchmark::State& state) {
  state.counters["time_per_key"] = benchmark::Counter(
      static_cast<double>(state.range(0)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_BareWalk(benchmark::State& state) {
  PcOfSize(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  for ([[maybe_unused]] auto _ : state) {
    BareWalk walk;
    walk.Walk("CLSID");
    benchmark::DoNotOptimize(walk.files);
    state.counters["keys"] = static_cast<double>(walk.keys);
    state.counters["values"] = static_cast<double>(walk.values);
  }
  CountPerKey(state);
}

void BM_FullScan(benchmark::State& state) {
  TestPc& pc = PcOfSize(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  ScriptFrontEnd front_end;
  frmMain window(front_end, Application{.folder = pc.program_folder()});
  BindHandlers(window);
  SetInitValues(window);
  LoadReasons(window);
  for ([[maybe_unused]] auto _ : state) cmdScan_Click(window);
  state.counters["findings"] = window.ProblemCount;
  CountPerKey(state);
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
}

// In this order, so that the two of a pair run on the same PC one after the other.
BENCHMARK(BM_BareWalk)->Args({10'000, 20'000})->Apply(Sizes);
BENCHMARK(BM_FullScan)->Args({10'000, 20'000})->Apply(Sizes);
BENCHMARK(BM_BareWalk)->Args({200'000, 400'000})->Apply(Sizes);
BENCHMARK(BM_FullScan)->Args({200'000, 400'000})->Apply(Sizes);
BENCHMARK(BM_BareWalk)->Args({700'000, 1'200'000})->Apply(Sizes);
BENCHMARK(BM_FullScan)->Args({700'000, 1'200'000})->Apply(Sizes);
BENCHMARK(BM_BareWalk)->Args({1'000'000, 2'000'000})->Apply(Sizes);
BENCHMARK(BM_FullScan)->Args({1'000'000, 2'000'000})->Apply(Sizes);

}  // namespace
}  // namespace tidemark::bench
