// A generated PC of any size: two keys and four values a class, a third of the values paths, a
// tenth of those dangling.
#pragma once

#include <string>

#include "tests/support/test_pc.h"

namespace tidemark::bench {

// Puts keys / 2 classes under HKEY_CLASSES_ROOT\CLSID and the files that they name under
// pc.folder().
void FillPc(TestPc& pc, int keys);

// The filled PC of that size. One is there at a time, and serves the benchmarks that ask for it in
// turn.
TestPc& PcOfSize(int keys);

}  // namespace tidemark::bench
