// The ignore list: the first line is a text that is looked up and then added, the file stands
// behind it. What was added is found.
#include "helpers/ignore_list.h"

#include <cstdint>
#include <fstream>
#include <string>

#include "tests/fuzz/fuzz_pc.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const tidemark::fuzz::FuzzPc pc;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const auto end = text.find('\n');
  const std::string entry = text.substr(0, end);
  {
    std::ofstream file(pc.program_folder() / "Ignorelst.ini", std::ios::binary);
    if (end != std::string::npos) file << text.substr(end + 1);
  }
  tidemark::IgnoreList list;
  LoadIgnoreLst(list, "C:\\Tidemark");
  IsInIngnoreList(list, entry);
  const std::size_t before = list.slots.size();
  AddToSafeList(list, "C:\\Tidemark", entry);
  const bool is_blank = entry.find_first_not_of(' ') == std::string::npos;
  tidemark::fuzz::Require(list.slots.size() == before + (is_blank ? 0 : 1));
  tidemark::fuzz::Require(is_blank || IsInIngnoreList(list, entry));
  return 0;
}
