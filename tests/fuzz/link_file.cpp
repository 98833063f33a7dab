// Link files: what is read can be written, and reads the same again.
#include "platform/link_file.h"

#include <cstdint>
#include <string_view>

#include "platform/hosted/link_writer.h"
#include "tests/fuzz/fuzz_pc.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using tidemark::ParseLinkFile;
  using tidemark::fuzz::Require;
  using tidemark::hosted::FormatLinkFile;
  const auto link = ParseLinkFile({reinterpret_cast<const char*>(data), size});
  if (!link) return 0;
  const auto again = ParseLinkFile(FormatLinkFile(*link));
  Require(again.has_value());
  Require(again->local_path == link->local_path);
  Require(again->description == link->description);
  Require(again->relative_path == link->relative_path);
  Require(again->working_directory == link->working_directory);
  Require(again->arguments == link->arguments);
  Require(again->icon_file == link->icon_file);
  Require(again->hot_key == link->hot_key);
  return 0;
}
