#include "generated_pc.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>

#include "platform/unique_handle.h"

namespace tidemark::bench {
namespace {

constexpr int kFolders = 100;
constexpr int kFilesPerFolder = 100;
constexpr int kFoldersInFolder = 10;  // of the tree of files

std::string FileName(const std::string& folder, int number) {
  return folder + "\\lib" + std::to_string(number % kFolders) + "\\file" +
         std::to_string(number / kFolders % kFilesPerFolder) + ".dll";
}

std::string PathText(const std::string& folder, int number) {
  std::string path = FileName(folder, number);
  if (number % 10 == 0) path.insert(path.size() - 4, "-gone" + std::to_string(number));
  return path;
}

void SetText(HKEY key, const char* name, const std::string& text) {
  RegSetValueExA(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                 static_cast<DWORD>(text.size() + 1));
}

UniqueKey MakeKey(HKEY parent, const std::string& name) {
  HKEY key = nullptr;
  RegCreateKeyExA(parent, name.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                  nullptr, &key, nullptr);
  return UniqueKey(key);
}

void MakeClass(HKEY classes, const std::string& folder, int number, bool has_version) {
  std::array<char, 64> name{};
  std::snprintf(name.data(), name.size(), "{%08X-0000-0000-C000-000000000046}", number);
  const UniqueKey key = MakeKey(classes, name.data());
  SetText(key.Get(), "", "Class number " + std::to_string(number));
  if (has_version) SetText(key.Get(), "Version", "1.0");
  const UniqueKey server = MakeKey(key.Get(), "InprocServer32");
  SetText(server.Get(), "", PathText(folder, number));
  if (number % 3 == 0) {
    SetText(server.Get(), "CodeBase", PathText(folder, number + 1));
  } else {
    SetText(server.Get(), "ThreadingModel", "Both");
  }
}

void MakeFile(const std::string& path) {
  const UniqueFile file(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
}

// Junk is in every second folder.
void MakeFolderOfTree(TestPc& pc, int number) {
  constexpr std::array kKept = {"letter.txt", "Holiday 12.jpg", "index.html",
                                "notes.doc",  "setup.exe",      "driver.dll",
                                "table.xls",  "song.mp3",       "readme"};
  constexpr std::array kJunk = {"~letter.txt", "page.bak", "session.tmp", "report.old"};
  const std::string folder = FolderOfTree(pc, number) + '\\';
  CreateDirectoryA(folder.c_str(), nullptr);
  for (const char* name : kKept) MakeFile(folder + name);
  const auto turn = static_cast<std::size_t>(number / 2) % kJunk.size();
  MakeFile(folder + (number % 2 == 0 ? kJunk[turn] : "photo.png"));
}

// One PC can be there at a time; its name tells what it is filled with.
template <class Fill>
TestPc& PcNamed(const std::string& name, Fill&& fill) {
  static std::unique_ptr<TestPc> pc;
  static std::string its_name;
  if (its_name != name) {
    pc.reset();
    pc = std::make_unique<TestPc>();
    fill(*pc);
    its_name = name;
  }
  return *pc;
}

}  // namespace

void FillPc(TestPc& pc, int keys, int values) {
  for (int number = 0; number < kFolders * kFilesPerFolder; ++number) {
    pc.MakeFile(FileName(pc.folder(), number));
  }
  const UniqueKey classes = MakeKey(HKEY_CLASSES_ROOT, "CLSID");
  const std::int64_t count = keys / 2;
  const std::int64_t versions = values - 3 * count;
  for (int number = 0; number < count; ++number) {
    const bool has_version = (number + 1) * versions / count > number * versions / count;
    MakeClass(classes.Get(), pc.folder(), number, has_version);
  }
}

TestPc& PcOfSize(int keys, int values) {
  return PcNamed(std::to_string(keys) + " keys, " + std::to_string(values) + " values",
                 [keys, values](TestPc& pc) { FillPc(pc, keys, values); });
}

TestPc& PcWithFolders(int folders) {
  return PcNamed(std::to_string(folders) + " folders", [folders](TestPc& pc) {
    for (int folder = 0; folder < folders; ++folder) MakeFolderOfTree(pc, folder);
  });
}

std::string FileTree(const TestPc& pc) { return FolderOfTree(pc, 0); }

std::string FolderOfTree(const TestPc& pc, int number) {
  if (number == 0) return pc.folder() + "\\tree";
  return FolderOfTree(pc, (number - 1) / kFoldersInFolder) + "\\Folder " + std::to_string(number);
}

}  // namespace tidemark::bench
