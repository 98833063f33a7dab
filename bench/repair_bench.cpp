// A repair of 10,000 findings with and without its complete record, flushes included. Of ten
// findings so many are keys; the others are values, half of them in the same key.
#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include "repair/repair.h"
#include "tests/support/window_pc.h"

namespace tidemark::bench {
namespace {

constexpr int kFindings = 10'000;

void AddFinding(WindowPc& on, int number, int keys_of_ten) {
  const bool is_key = number % 10 < keys_of_ten;
  const std::string text = std::to_string(number);
  const std::string key = "Software\\Made\\" + (is_key || number % 2 == 0 ? text : "shared");
  const std::string name = "value " + text;
  const std::string data = "C:\\gone\\" + name + ".dll";
  on.pc.SetText(HKEY_CURRENT_USER, key, name, data);
  if (is_key) on.pc.SetText(HKEY_CURRENT_USER, key + "\\shell\\open\\command", "", data);
  ListItem* item = on.window.lvInvalidLoc.Add("K" + text, "HKEY_CURRENT_USER\\" + key);
  item->SetSubItem(kValueName, name);
  item->SetSubItem(kValueData, data);
  item->SetSubItem(kValueType, "1");
  item->SetSubItem(kSelected, "1");
  item->SetSubItem(kTestCode, is_key ? "APP" : "STARTUP");
}

// The time of a hosted PC stands but for the pauses that the program makes; those count as if they
// had been waited for.
double Seconds(WindowPc& on) {
  using Clock = std::chrono::steady_clock;
  const ULONGLONG start_ms = GetTickCount64();
  const Clock::time_point start = Clock::now();
  cmdFix_Click(on.window);
  const std::chrono::duration<double> took = Clock::now() - start;
  const ULONGLONG paused_ms = TestPc::CanFault() ? GetTickCount64() - start_ms : 0;
  return took.count() + static_cast<double>(paused_ms) / 1000;
}

// Where the folder of the records can't be made, a repair goes without.
void BM_Repair(benchmark::State& state) {
  const int keys_of_ten = static_cast<int>(state.range(0));
  const bool with_record = state.range(1) != 0;
  for ([[maybe_unused]] auto _ : state) {
    WindowPc on;
    if (!with_record) on.pc.MakeFile(on.pc.program_folder() + "\\backup\\complete", "");
    for (int number = 0; number < kFindings; ++number) AddFinding(on, number, keys_of_ten);
    state.SetIterationTime(Seconds(on));
  }
}
BENCHMARK(BM_Repair)
    ->ArgNames({"keys_of_ten", "record"})
    ->ArgsProduct({{6, 0}, {0, 1}})  // six of ten are keys on the sample PC
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

}  // namespace
}  // namespace tidemark::bench
