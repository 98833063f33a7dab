#include "generated_pc.h"

#include <array>
#include <cstdio>
#include <memory>

#include "platform/unique_handle.h"

namespace tidemark::bench {
namespace {

constexpr int kFolders = 100;
constexpr int kFilesPerFolder = 100;

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

void MakeClass(HKEY classes, const std::string& folder, int number) {
  std::array<char, 64> name{};
  std::snprintf(name.data(), name.size(), "{%08X-0000-0000-C000-000000000046}", number);
  const UniqueKey key = MakeKey(classes, name.data());
  SetText(key.Get(), "", "Class number " + std::to_string(number));
  SetText(key.Get(), "Version", "1.0");
  const UniqueKey server = MakeKey(key.Get(), "InprocServer32");
  SetText(server.Get(), "", PathText(folder, number));
  if (number % 3 == 0) {
    SetText(server.Get(), "CodeBase", PathText(folder, number + 1));
  } else {
    SetText(server.Get(), "ThreadingModel", "Both");
  }
}

}  // namespace

void FillPc(TestPc& pc, int keys) {
  for (int number = 0; number < kFolders * kFilesPerFolder; ++number) {
    pc.MakeFile(FileName(pc.folder(), number));
  }
  const UniqueKey classes = MakeKey(HKEY_CLASSES_ROOT, "CLSID");
  for (int number = 0; number < keys / 2; ++number) MakeClass(classes.Get(), pc.folder(), number);
}

TestPc& PcOfSize(int keys) {
  static std::unique_ptr<TestPc> pc;
  static int size = 0;
  if (size != keys) {
    pc.reset();
    pc = std::make_unique<TestPc>();
    FillPc(*pc, keys);
    size = keys;
  }
  return *pc;
}

}  // namespace tidemark::bench
