// Complete records: any bytes can be read, and of a record that was written no change of its bytes
// brings in what is not vouched for by its checksum.
#include <cstdint>
#include <string>
#include <string_view>

#include "registry/kept_files.h"
#include "registry/record_contents.h"
#include "tests/fuzz/fuzz_pc.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tidemark;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const RecordContents whole = ReadRecordScript(bytes);
  // What stands behind a cut changes nothing of what is before it.
  const RecordContents part = ReadRecordScript(bytes.substr(0, size / 2));
  fuzz::Require(part.pieces.size() <= whole.pieces.size() + whole.damaged + part.damaged);
  CountsText(CountsOf(whole));
  for (const KeptFile& file : ReadKeptFiles(bytes).files) {
    fuzz::Require(file.copy.find_first_of("\\/:") == std::string::npos);
  }
  return 0;
}
