// A repair of 10,000 findings with and without its complete record, flushes included. A finding in
// four is a key, the others are values, half of them in the same key.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <string>

#include "repair/repair.h"
#include "tests/support/window_pc.h"

namespace tidemark::bench {
namespace {

constexpr int kFindings = 10'000;

void AddFinding(WindowPc& on, int number) {
  const bool is_key = number % 4 == 0;
  const std::string key = "Software\\Made\\" + std::to_string(number % 2 == 0 ? number : 1);
  const std::string name = "value " + std::to_string(number);
  on.pc.SetText(HKEY_CURRENT_USER, key, name, "C:\\gone\\" + name + ".dll");
  ListItem* item =
      on.window.lvInvalidLoc.Add("K" + std::to_string(number), "HKEY_CURRENT_USER\\" + key);
  item->SetSubItem(kValueName, name);
  item->SetSubItem(kValueData, "C:\\gone\\" + name + ".dll");
  item->SetSubItem(kValueType, "1");
  item->SetSubItem(kSelected, "1");
  item->SetSubItem(kTestCode, is_key ? "APP" : "STARTUP");
}

// Where the folder of the records can't be made, a repair goes without.
void BM_Repair(benchmark::State& state) {
  const bool with_record = state.range(0) != 0;
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    {
      WindowPc on;
      if (!with_record) on.pc.MakeFile(on.pc.program_folder() + "\\backup\\complete", "");
      for (int number = 0; number < kFindings; ++number) AddFinding(on, number);
      state.ResumeTiming();
      cmdFix_Click(on.window);
      state.PauseTiming();
    }
    state.ResumeTiming();
  }
}
BENCHMARK(BM_Repair)
    ->ArgName("record")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace tidemark::bench
