// Registry scripts: any bytes can be imported, and what comes of them survives an export and an
// import in either form's own terms.
#include "platform/hosted/registry_text.h"

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/hosted/registry_store.h"
#include "tests/fuzz/fuzz_pc.h"

namespace {

using namespace tidemark::hosted;
using tidemark::ScriptForm;

std::string Exported(std::string_view script, ScriptForm form) {
  RegistryStore store("S-1-5-21-0-0-0-1000");
  ImportRegistryText(script, store);
  return ExportRegistryText(store, "", form);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view script(reinterpret_cast<const char*>(data), size);
  const std::string version5 = Exported(script, ScriptForm::kVersion5);
  tidemark::fuzz::Require(Exported(version5, ScriptForm::kVersion5) == version5);
  const std::string regedit4 = Exported(script, ScriptForm::kRegedit4);
  Exported(regedit4, ScriptForm::kRegedit4);
  return 0;
}
