// A junk scan beside bare passes of the file search over the same folders, and the sorting of what
// was found.
#include "junk_bench.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "generated_pc.h"
#include "junk/junk.h"
#include "platform/folder_search.h"
#include "shell/wiring.h"
#include "toolkit/script_front_end.h"

namespace tidemark::bench {
namespace {

// One search in each folder for each pattern, its results read to the end.
void BM_BareSearches(benchmark::State& state) {
  TestPc& pc = PcWithFolders(kJunkFolders);
  std::vector<std::string> folders;
  for (int number = 0; number < kJunkFolders; ++number) {
    folders.push_back(FolderOfTree(pc, number) + '\\');
  }
  ScriptFrontEnd front_end;
  frmMain window(front_end, Application{.folder = pc.program_folder()});
  LoadFileTypes(window);
  long found_files = 0;
  for ([[maybe_unused]] auto _ : state) {
    found_files = 0;
    for (int pattern = 1; pattern <= window.lvFileTypes.Count(); ++pattern) {
      const std::string name = window.lvFileTypes.Item(pattern)->Caption().String();
      for (const std::string& folder : folders) {
        for (FolderSearch found(folder + name); found; found.Next()) ++found_files;
      }
    }
  }
  state.counters["found"] = static_cast<double>(found_files);
}
BENCHMARK(BM_BareSearches)->Apply(OfJunkScan);

void BM_JunkScan(benchmark::State& state) {
  TestPc& pc = PcWithFolders(kJunkFolders);
  ScriptFrontEnd front_end;
  frmMain window(front_end, Application{.folder = pc.program_folder()});
  BindHandlers(window);
  ScanTree(window, pc, state);
}
BENCHMARK(BM_JunkScan)->Apply(OfJunkScan);

// A click on the heading of the paths, and on that of the sizes, in turns.
void BM_SortJunk(benchmark::State& state) {
  ScriptFrontEnd front_end;
  frmMain window(front_end, Application{});
  BindHandlers(window);
  const auto rows = static_cast<int>(state.range(0));
  for (int number = 0; number < rows; ++number) {
    const int mixed = static_cast<int>(number * 7919LL % rows);
    ListItem* row = window.lvJunkFiles.Add(
        {}, "C:\\Documents and Settings\\User\\Local Settings\\Temp\\Folder " +
                std::to_string(mixed % 100) + "\\session" + std::to_string(mixed) + ".tmp");
    row->SetSubItem(1, std::to_string(mixed * 13));
  }
  int column = 1;
  for ([[maybe_unused]] auto _ : state) {
    window.lvJunkFiles.UserColumnClick(column);
    column = 3 - column;
  }
}
BENCHMARK(BM_SortJunk)->Arg(50'000)->Unit(benchmark::kMillisecond);

}  // namespace

void OfJunkScan(benchmark::internal::Benchmark* benchmark) {
  benchmark->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime()->MinTime(2);
}

void ScanTree(frmMain& window, const TestPc& pc, benchmark::State& state) {
  LoadFileTypes(window);
  LoadExcludeFolders(window);
  // A drive that is not there brings the panels of a scan up.
  window.tvDrives.Clear();
  window.tvDrives.Add("?", "", 0)->SetChecked(true);
  ScanJunkFiles(window);
  window.picScaningJunk.SetVisible(true);
  window.StopRequested = false;
  for ([[maybe_unused]] auto _ : state) {
    window.lvJunkFiles.Clear();
    ScanFolder(window, FileTree(pc));
  }
  state.counters["rows"] = window.lvJunkFiles.Count();
}

}  // namespace tidemark::bench
