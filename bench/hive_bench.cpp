// Loading a hive of more than 100 MB; and a full scan with what is loaded for it, from registry.reg
// and from that hive.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "generated_pc.h"
#include "platform/hosted/hives/hive_file.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_store.h"
#include "scan/results.h"
#include "scan/scan.h"
#include "shell/status.h"
#include "shell/wiring.h"
#include "tests/support/hive_maker.h"
#include "toolkit/script_front_end.h"
#include "window/frmMain.h"

namespace tidemark::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kKeys = 700'000;
constexpr int kValues = 1'200'000;

hosted::RegistryStore& Store() { return hosted::HostedPc::Current().registry(); }

hosted::RegistryKey& Software() {
  bool made = false;
  return *Store().Create(Store().Root(HKEY_LOCAL_MACHINE), "Software", &made).target();
}

// What that PC holds as registry.reg and as the hive of HKEY_LOCAL_MACHINE\Software; gone when the
// process ends.
struct Files {
  Files() {
    PcOfSize(kKeys, kValues);
    Store().Save(script);
    std::ofstream(hive, std::ios::binary) << MakeHive(Software());
  }
  ~Files() {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }
  fs::path folder = fs::temp_directory_path() / ("tidemark-bench-hive-" + std::to_string(getpid()));
  bool made = fs::create_directory(folder);
  fs::path script = folder / "registry.reg";
  fs::path hive = folder / "SOFTWARE";
};

const Files& TheFiles() {
  static const Files files;
  return files;
}

double MemoryInUse() {
  const auto memory = mallinfo2();
  return static_cast<double>(memory.uordblks + memory.hblkhd);
}

void CountBytes(benchmark::State& state, double memory) {
  const auto size = static_cast<double>(fs::file_size(TheFiles().hive));
  state.SetBytesProcessed(static_cast<std::int64_t>(size) *
                          static_cast<std::int64_t>(state.iterations()));
  state.counters["megabytes"] = size / 1e6;
  state.counters["memory_per_file_byte"] = memory / size;
}

// Read, checked and loaded; the hive's own bytes are kept too.
void BM_LoadHive(benchmark::State& state) {
  const fs::path path = TheFiles().hive;
  double memory = 0;
  for ([[maybe_unused]] auto _ : state) {
    const double before = MemoryInUse();
    auto hive = std::make_unique<hosted::HiveFile>(hosted::ReadHive(path));
    auto key = std::make_unique<hosted::RegistryKey>(nullptr, "top");
    hosted::LoadHive(*hive, *key);
    memory = MemoryInUse() - before;
    state.PauseTiming();
    key.reset();
    hive.reset();
    state.ResumeTiming();
  }
  CountBytes(state, memory);
}

template <class Load>
void LoadAndScan(benchmark::State& state, Load load) {
  TheFiles();
  TestPc& pc = PcOfSize(kKeys, kValues);
  ScriptFrontEnd front_end;
  frmMain window(front_end, Application{.folder = pc.program_folder()});
  BindHandlers(window);
  SetInitValues(window);
  LoadReasons(window);
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    Store().DeleteKey(Software());
    state.ResumeTiming();
    load();
    cmdScan_Click(window);
  }
  state.counters["findings"] = window.ProblemCount;
}

void BM_ScanFromScript(benchmark::State& state) {
  LoadAndScan(state, [] { Store().Load(TheFiles().script); });
}

void BM_ScanFromHive(benchmark::State& state) {
  LoadAndScan(state, [] { hosted::LoadHive(hosted::ReadHive(TheFiles().hive), Software()); });
}

void Measured(benchmark::internal::Benchmark* benchmark) {
  benchmark->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
}

BENCHMARK(BM_LoadHive)->Apply(Measured);
BENCHMARK(BM_ScanFromScript)->Apply(Measured);
BENCHMARK(BM_ScanFromHive)->Apply(Measured);

}  // namespace
}  // namespace tidemark::bench
