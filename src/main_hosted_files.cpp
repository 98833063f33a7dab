#include "main_hosted_files.h"

namespace tidemark {
namespace {

namespace fs = std::filesystem;

// Where the package puts them, or in the folder that the program was built from.
fs::path ShippedFolder() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  const fs::path installed = program.parent_path().parent_path() / "share/tidemark";
  return fs::exists(installed, error) ? installed : fs::path(TIDEMARK_ASSETS);
}

}  // namespace

void CopyShippedFiles(const fs::path& folder) {
  constexpr auto kOptions = fs::copy_options::skip_existing;
  const fs::path from = ShippedFolder();
  std::error_code ignored;
  fs::create_directories(folder / "images", ignored);
  fs::copy_file(from / "Ignorelst.ini", folder / "Ignorelst.ini", kOptions, ignored);
  for (fs::directory_iterator entry(from / "images", ignored), end; !ignored && entry != end;
       entry.increment(ignored)) {
    if (entry->path().extension() != ".jpg") continue;
    std::error_code left_out;
    fs::copy_file(entry->path(), folder / "images" / entry->path().filename(), kOptions, left_out);
  }
}

}  // namespace tidemark
