#include "tests/support/sample_disk.h"

#include <cstdlib>
#include <stdexcept>

namespace tidemark {

namespace fs = std::filesystem;

SampleDisk::SampleDisk(const fs::path& folder)
    : disk(folder / "disk"),
      config(disk / "Windows/System32/Config"),
      profile(disk / "Users/anna"),
      own(folder / "own") {
  const fs::path source = TIDEMARK_SOURCE_FOLDER;
  const fs::path sample = source / "sample";
  fs::create_directory(disk);
  const std::string script = (source / "tests/sample/make_disk.pl").string();
  const std::string command = "perl '" + script + "' '" + sample.string() + "' '" + disk.string();
  if (std::system((command + "'").c_str()) != 0) throw std::runtime_error("no sample disk");
  fs::copy(sample / "drives/D", folder / "data", fs::copy_options::recursive);
  choice.drives['D'] = folder / "data";
  choice.data_folder = own;
}

}  // namespace tidemark
