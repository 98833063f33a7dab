// Generated PCs of any size: for the registry scan two keys and three or four values a class, a
// third of the values paths, a tenth of those dangling; for the junk scan a tree of folders with
// ten files each.
#pragma once

#include <string>

#include "tests/support/test_pc.h"

namespace tidemark::bench {

// Puts keys / 2 classes under HKEY_CLASSES_ROOT\CLSID and the files that they name under
// pc.folder(). The values are one and a half to two for each key.
void FillPc(TestPc& pc, int keys, int values);

// The filled PC of that size. One is there at a time, and serves the benchmarks that ask for it in
// turn.
TestPc& PcOfSize(int keys, int values);
// With two values for each key.
inline TestPc& PcOfSize(int keys) { return PcOfSize(keys, 2 * keys); }

// That PC with so many folders in FileTree(), ten in each folder as far as they go, and ten files
// in each. One file in twenty is junk.
TestPc& PcWithFolders(int folders);
std::string FileTree(const TestPc& pc);
// The path of one of them, from 0; the first is FileTree() itself.
std::string FolderOfTree(const TestPc& pc, int number);

}  // namespace tidemark::bench
