// The judgement of a text from the registry, which never fails.
#include "helpers/check_valid.h"

#include <cstdint>
#include <string>

#include "tests/fuzz/fuzz_pc.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const tidemark::fuzz::FuzzPc pc;
  tidemark::CheckValid(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
