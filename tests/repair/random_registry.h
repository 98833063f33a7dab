// A registry filled by chance, the same for the same seed everywhere: good and bad values of all
// types in all places where the diagnostic tests look, but for the shortcuts.
#pragma once

#include <array>
#include <random>
#include <string>
#include <vector>

#include "registry/exact_registry.h"
#include "tests/support/test_pc.h"

namespace tidemark {

// Where the diagnostic tests look. A "#" is one of a few numbers, so that keys get several values;
// a name of "\" is a path.
enum class Data { kPath, kReference, kCount };
struct Place {
  HKEY root;
  std::string key;
  std::string name;
  Data data = Data::kPath;
};
inline std::vector<Place> Places() {
  const std::string version = "Software\\Microsoft\\Windows\\CurrentVersion\\";
  const std::string windows = "Software\\Microsoft\\Windows\\";
  return {
      {HKEY_CLASSES_ROOT, "CLSID\\{#}", "n#"},
      {HKEY_CLASSES_ROOT, "CLSID\\{#}\\InprocServer32", "", Data::kReference},
      {HKEY_CLASSES_ROOT, "CLSID\\{#}\\InprocServer32", "n#"},
      {HKEY_CLASSES_ROOT, "CLSID\\{#}\\LocalServer32\\Sub", ""},
      {HKEY_CLASSES_ROOT, "CLSID\\{#}\\ProgID", "", Data::kReference},
      {HKEY_CURRENT_USER, "Software\\Classes\\CLSID\\{user #}\\InprocServer32", ""},
      {HKEY_CLASSES_ROOT, "Interface\\{#}\\TypeLib", "", Data::kReference},
      {HKEY_CLASSES_ROOT, "Interface\\{#}", "TypeLib", Data::kReference},
      {HKEY_CLASSES_ROOT, "TypeLib\\{#}\\1.0\\0\\win32", ""},
      {HKEY_CLASSES_ROOT, "TypeLib\\{#}\\1.0", "n#"},
      {HKEY_CLASSES_ROOT, ".e#", "", Data::kReference},
      {HKEY_CLASSES_ROOT, "Type.#\\shell\\open\\command", ""},
      {HKEY_CLASSES_ROOT, "Type.#\\shell", "n#"},
      {HKEY_LOCAL_MACHINE, version + "SharedDlls", "\\", Data::kCount},
      {HKEY_LOCAL_MACHINE, "System\\CurrentControlSet\\Services\\VxD\\V#", "StaticVxD"},
      {HKEY_LOCAL_MACHINE, version + "Fonts", "n#"},
      {HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts", "n#"},
      {HKEY_CURRENT_USER, version + "Run", "n#"},
      {HKEY_LOCAL_MACHINE, version + "Run\\Sub #", "n#"},
      {HKEY_LOCAL_MACHINE, version + "App Paths\\#.exe", ""},
      {HKEY_LOCAL_MACHINE, version + "App Paths\\#.exe", "Path"},
      {HKEY_LOCAL_MACHINE, version + "Uninstall\\Made #", "UninstallString"},
      {HKEY_LOCAL_MACHINE, version + "Uninstall\\Made #", "Icon"},
      {HKEY_LOCAL_MACHINE, windows + "Help", "n#"},
      {HKEY_LOCAL_MACHINE, windows + "HTML Help\\Sub", ""},
  };
}

class RandomRegistry {
 public:
  RandomRegistry(TestPc& pc, unsigned seed) : pc_(pc), random_(seed) {}

  void Fill() {
    pc_.MakeFile(pc_.folder() + "\\here.dll");
    for (const Place& place : Places()) {
      for (unsigned count = Chance(4); count > 0; --count) {
        const std::string name = place.name == "\\" ? Path() : Numbered(place.name);
        SetValue(place, Numbered(place.key), name);
      }
    }
  }
  // Puts names and data of all kinds beside and below what Fill has made.
  void FillExactly() {
    for (const Place& place : Places()) {
      if (Chance(2) == 0) continue;
      const std::string key = Numbered(place.key);
      if (!pc_.KeyExists(place.root, key)) continue;
      FillExactly(place.root, key + "\\Below");
      FillExactly(place.root, key + "\\" + ExactName());
      if (place.root != HKEY_CLASSES_ROOT) continue;
      // The other half holds the same key with other values.
      FillExactly(HKEY_CURRENT_USER, "Software\\Classes\\" + key + "\\Below");
    }
  }
  unsigned Chance(unsigned number) { return static_cast<unsigned>(random_() % number); }

 private:
  std::string Pick(const std::vector<std::string>& texts) {
    return texts[Chance(static_cast<unsigned>(texts.size()))];
  }
  std::string Numbered(std::string text) {
    const auto place = text.find('#');
    if (place == std::string::npos) return text;
    text.replace(place, 1, std::to_string(Chance(6)));
    return text.starts_with('n') ? text + Pick({"", "", "\\b\\", "\xC3\xA9", "q\"q"}) : text;
  }
  std::string Path() {
    const std::string path = pc_.folder() + Pick({"\\here", "\\gone", "\\Folder\\gone"}) + ".dll";
    return Pick({path, path, path, '"' + path + "\" \"%1\"", path + ",-" + Numbered("#"),
                 path + " \xC3\xA9", path + " \xD0\x96", "%Made%;" + path});
  }
  std::string ExactName() {
    std::string name = Pick({"n", "q\"q", "a]b", "[c", "100%", "%0A", "; d", "\xC3\xA9", "\xD0\x96",
                             "\xF0\x9F\x98\x80", "\xED\xA0\xBD", "line\r\nbreak", " blank ", "=@"});
    return name + std::to_string(Chance(3));
  }
  void FillExactly(HKEY root, const std::string& path) {
    ExactKey key;
    EXPECT_EQ(ExactKey::Create(root, path, key), ERROR_SUCCESS) << path;
    for (unsigned count = Chance(5); count > 0; --count) {
      const DWORD type = std::array<DWORD, 10>{0, 1, 1, 2, 3, 4, 6, 7, 11, 0x12345}[Chance(10)];
      std::string bytes(Chance(3) == 0 ? Chance(100) : Chance(5), '\0');
      for (char& byte : bytes) byte = static_cast<char>(Chance(2) == 0 ? Chance(128) : Chance(256));
      key.Write(Chance(8) == 0   ? ""
                : Chance(3) == 0 ? ExactName() + "\\"
                                 : ExactName(),
                {type, bytes});
    }
    if (Chance(500) == 0) key.Write("big", {REG_SZ, std::string(1'000'001, 'x')});
  }
  void SetValue(const Place& place, const std::string& key, const std::string& name) {
    if (place.data == Data::kCount) {
      const DWORD type = std::array<DWORD, 4>{REG_DWORD, REG_DWORD, REG_BINARY, 11}[Chance(4)];
      return pc_.SetBinary(place.root, key, name, std::string("\1\0\xA0\xFF", 4), type);
    }
    std::string text = place.data == Data::kPath
                           ? Path()
                           : Pick({"", Numbered("{#}"), "{gone}", Numbered("Type.#"), "none"});
    const DWORD type =
        std::array<DWORD, 5>{REG_SZ, REG_SZ, REG_SZ, REG_EXPAND_SZ, REG_MULTI_SZ}[Chance(5)];
    text += '\0';
    if (type == REG_MULTI_SZ) text.append("second").append(2, '\0');
    pc_.SetBinary(place.root, key, name, text, type);
  }

  TestPc& pc_;
  std::mt19937 random_;
};

}  // namespace tidemark
