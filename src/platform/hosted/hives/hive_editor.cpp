#include "platform/hosted/hives/hive_editor.h"

#include <hivex.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/hosted/hives/hive_records.h"

namespace tidemark::hosted {
namespace {

[[noreturn]] void Fail() { throw std::system_error(errno, std::generic_category()); }

void Require(bool done) {
  if (!done) Fail();
}

HostFile FileInMemory(std::string_view bytes) {
  HostFile file(memfd_create("hive", MFD_CLOEXEC));
  Require(static_cast<bool>(file));
  while (!bytes.empty()) {
    const ssize_t written = write(file.get(), bytes.data(), bytes.size());
    Require(written > 0);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return file;
}

std::string NameOf(const HostFile& file) { return "/proc/self/fd/" + std::to_string(file.get()); }

// The library's handle of a record is its place in the file.
std::size_t Handle(std::uint32_t offset) { return HiveFileOffset(offset); }

}  // namespace

void HiveEditor::Close::operator()(hive_h* hive) const { hivex_close(hive); }

HiveEditor::HiveEditor(std::string_view hive)
    : file_(FileInMemory(hive)), hive_(hivex_open(NameOf(file_).c_str(), HIVEX_OPEN_WRITE)) {
  Require(hive_ != nullptr);
}

void HiveEditor::SetValues(std::uint32_t key, const std::vector<Value>& values) {
  std::vector<hive_set_value> set;
  std::vector<std::string> names;
  names.reserve(values.size());
  for (const Value& value : values) {
    // The library's structure has no const; it writes to neither.
    set.push_back({names.emplace_back(value.name).data(), static_cast<hive_type>(value.type),
                   value.data.size(), const_cast<char*>(value.data.data())});
  }
  Require(hivex_node_set_values(hive_.get(), Handle(key), set.size(), set.data(), 0) == 0);
}

void HiveEditor::DeleteKey(std::uint32_t key) {
  Require(hivex_node_delete_child(hive_.get(), Handle(key)) == 0);
}

std::uint32_t HiveEditor::AddKey(std::uint32_t parent, const std::string& name) {
  const hive_node_h key = hivex_node_add_child(hive_.get(), Handle(parent), name.c_str());
  Require(key != 0);
  return static_cast<std::uint32_t>(key - kHiveBaseSize);
}

std::string HiveEditor::Bytes() {
  const HostFile target = FileInMemory({});
  Require(hivex_commit(hive_.get(), NameOf(target).c_str(), 0) == 0);
  struct stat status {};
  Require(fstat(target.get(), &status) == 0);
  std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t read =
        pread(target.get(), bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
    Require(read > 0);
    done += static_cast<std::size_t>(read);
  }
  return bytes;
}

}  // namespace tidemark::hosted
