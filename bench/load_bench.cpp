// Loading registry.reg into the hosted registry: its speed and its memory, beside a bare read of
// the file.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "generated_pc.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_store.h"

namespace tidemark::bench {
namespace {

constexpr const char* kUserSid = "S-1-5-21-0-0-0-1000";

// registry.reg of a generated PC with 200,000 keys, as UTF-16 text; gone when the process ends.
std::filesystem::path RegistryFile() {
  struct TemporaryFile {
    TemporaryFile() { hosted::HostedPc::Current().registry().Save(path); }
    ~TemporaryFile() {
      std::error_code ignored;
      std::filesystem::remove(path, ignored);
    }
    std::filesystem::path path = std::filesystem::temp_directory_path() /
                                 ("tidemark-bench-" + std::to_string(getpid()) + ".reg");
  };
  PcOfSize(200'000);
  static const TemporaryFile file;
  return file.path;
}

void CountBytes(benchmark::State& state) {
  state.SetBytesProcessed(static_cast<std::int64_t>(std::filesystem::file_size(RegistryFile())) *
                          static_cast<std::int64_t>(state.iterations()));
}

void BM_ReadFile(benchmark::State& state) {
  const auto path = RegistryFile();
  for ([[maybe_unused]] auto _ : state) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes(std::filesystem::file_size(path), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    benchmark::DoNotOptimize(bytes);
  }
  CountBytes(state);
}
BENCHMARK(BM_ReadFile)->Unit(benchmark::kMillisecond);

void BM_LoadRegistry(benchmark::State& state) {
  const auto file = RegistryFile();
  double memory = 0;
  for ([[maybe_unused]] auto _ : state) {
    const auto before = mallinfo2();
    auto store = std::make_unique<hosted::RegistryStore>(kUserSid);
    store->Load(file);
    const auto after = mallinfo2();
    memory = static_cast<double>(after.uordblks + after.hblkhd) -
             static_cast<double>(before.uordblks + before.hblkhd);
    state.PauseTiming();
    store.reset();
    state.ResumeTiming();
  }
  CountBytes(state);
  state.counters["memory_per_file_byte"] =
      memory / static_cast<double>(std::filesystem::file_size(file));
}
BENCHMARK(BM_LoadRegistry)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tidemark::bench
