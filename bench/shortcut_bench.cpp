// The test of shortcuts beside a bare walk over the same tree, which opens and reads every link and
// judges nothing.
#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <string_view>

#include "helpers/modShortcut.h"
#include "helpers/system_helpers.h"
#include "platform/folder_search.h"
#include "platform/unique_handle.h"
#include "shell/wiring.h"
#include "shortcuts/shortcuts.h"
#include "tests/support/special_folders.h"
#include "tests/support/test_pc.h"
#include "toolkit/script_front_end.h"
#include "window/frmMain.h"

namespace tidemark::bench {
namespace {

constexpr int kFolders = 500;
constexpr int kFilesOfFolder = 90;
constexpr int kLinksOfFolder = 10;

UniqueFile Open(const std::string& path, DWORD access, DWORD disposition) {
  return UniqueFile(CreateFileA(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
}

// A PC with 50,000 files in its start menu, 5,000 of them links, of which every tenth is broken.
struct ShortcutPc {
  ShortcutPc() {
    UseOwnSpecialFolders(pc);
    root = GetSpecialFolderPath(CSIDL_COMMON_STARTMENU) + "\\";
    ScriptFrontEnd front_end;
    const std::string here = pc.folder() + "\\here.exe";
    pc.MakeFile(here);
    for (int folder = 0; folder < kFolders; ++folder) {
      const std::string path = root + "Group " + std::to_string(folder / 25) + "\\Folder " +
                               std::to_string(folder) + "\\";
      pc.MakeFolder(path.substr(0, path.size() - 1));
      for (int file = 0; file < kFilesOfFolder; ++file) {
        Open(path + "file " + std::to_string(file) + ".txt", GENERIC_WRITE, CREATE_ALWAYS);
      }
      for (int link = 0; link < kLinksOfFolder; ++link) {
        std::string file = path + "link " + std::to_string(link);
        const NewShortcut shortcut{.target = link == 0 ? pc.folder() + "\\gone.exe" : here,
                                   .working_directory = pc.folder()};
        WriteShortcut(front_end, file, AskBeforeReplacing::kNo, shortcut);
      }
    }
  }
  TestPc pc;
  std::string root;
};

ShortcutPc& Pc() {
  static ShortcutPc pc;
  return pc;
}

struct BareWalk {
  void Walk(const std::string& folder) {
    for (FolderSearch found(folder + "*"); found; found.Next()) {
      const std::string& name = found->name;
      if (name == "." || name == "..") continue;
      if ((found->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        Walk(folder + name + "\\");
      } else {
        ++files;
        if (name.ends_with(".lnk")) ReadLink(folder + name);
      }
    }
  }
  void ReadLink(const std::string& path) {
    std::array<char, 4096> bytes;
    DWORD count = 0;
    ReadFile(Open(path, GENERIC_READ, OPEN_EXISTING).Get(), bytes.data(), bytes.size(), &count,
             nullptr);
    links += count > 0 ? 1 : 0;
  }

  long files = 0;
  long links = 0;
};

void BM_BareFileWalk(benchmark::State& state) {
  const std::string& root = Pc().root;
  for ([[maybe_unused]] auto _ : state) {
    BareWalk walk;
    walk.Walk(root);
    state.counters["files"] = static_cast<double>(walk.files);
    state.counters["links"] = static_cast<double>(walk.links);
  }
}

void BM_ShortCuts(benchmark::State& state) {
  TestPc& pc = Pc().pc;
  ScriptFrontEnd front_end;
  frmMain window(front_end, Application{.folder = pc.program_folder()});
  BindHandlers(window);
  window.CurrentLocation = "SHORTCUTS";
  for ([[maybe_unused]] auto _ : state) {
    window.lvInvalidLoc.Clear();
    ShortCuts(window);
  }
  state.counters["findings"] = window.lvInvalidLoc.Count();
}

void Times(benchmark::internal::Benchmark* benchmark) {
  benchmark->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
}

BENCHMARK(BM_BareFileWalk)->Apply(Times);
BENCHMARK(BM_ShortCuts)->Apply(Times);

}  // namespace
}  // namespace tidemark::bench
