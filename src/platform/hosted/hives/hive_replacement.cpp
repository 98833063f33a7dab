#include "platform/hosted/hives/hive_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <utility>

#include "platform/hosted/host_file.h"
#include "platform/hosted/hosted_pc.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Refuse(const fs::path& path) {
  throw HostedPcError(path.string() + ": can't be written: " + std::strerror(errno));
}

void Step(const char* name) {
  if (before_hive_step != nullptr) before_hive_step(name);
}

void WriteNew(const fs::path& path, std::string_view bytes) {
  const HostFile file(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
  if (!file) Refuse(path);
  while (!bytes.empty()) {
    const ssize_t written = write(file.get(), bytes.data(), bytes.size());
    if (written <= 0) Refuse(path);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  if (fsync(file.get()) != 0) Refuse(path);
}

bool Holds(const fs::path& path, std::string_view bytes) {
  const HostFile file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  std::string block(1 << 20, '\0');
  while (file) {
    const ssize_t size = read(file.get(), block.data(), block.size());
    if (size == 0) return bytes.empty();
    if (size < 0 || !bytes.starts_with({block.data(), static_cast<std::size_t>(size)}))
      return false;
    bytes.remove_prefix(static_cast<std::size_t>(size));
  }
  return false;
}

// Owner, permissions, and what the driver of a Windows disk shows as attributes of its own: the
// platform's access list and its hidden and system bits. What can't be taken over is left.
void TakeOverAttributes(const fs::path& from, const fs::path& to) {
  struct stat status {};
  if (stat(from.c_str(), &status) == 0) {
    if (chown(to.c_str(), status.st_uid, status.st_gid) != 0) errno = 0;
    chmod(to.c_str(), status.st_mode & 07777U);
  }
  for (const char* name : {"system.ntfs_acl", "system.ntfs_attrib"}) {
    std::string value(1 << 16, '\0');
    const ssize_t size = getxattr(from.c_str(), name, value.data(), value.size());
    if (size > 0) setxattr(to.c_str(), name, value.data(), static_cast<std::size_t>(size), 0);
  }
}

void Flush(const fs::path& path, int flags) {
  const HostFile file(open(path.c_str(), flags | O_CLOEXEC));
  // Not every disk's driver can flush a folder: it then brings names to the disk as they come.
  if (!file || (fsync(file.get()) != 0 && errno != EINVAL)) Refuse(path);
}

// A second name for the old hive; where the disk knows none, a copy.
void KeepFormer(const fs::path& hive, const fs::path& former) {
  if (link(hive.c_str(), former.c_str()) == 0) return;
  if (errno == EEXIST) Refuse(former);
  std::error_code error;
  fs::copy_file(hive, former, error);
  if (error) throw HostedPcError(former.string() + ": " + error.message());
  TakeOverAttributes(hive, former);
  Flush(former, O_RDONLY);
}

}  // namespace

void (*before_hive_step)(const char* step) = nullptr;

// A name that is new or was moved is gone again unless the replacement is kept.
class NewHive::Undo {
 public:
  Undo() = default;
  Undo(const Undo&) = delete;
  Undo& operator=(const Undo&) = delete;
  ~Undo() {
    for (auto made = made_.rbegin(); made != made_.rend(); ++made) {
      if (made->second.empty()) {
        unlink(made->first.c_str());
      } else {
        rename(made->first.c_str(), made->second.c_str());
      }
    }
  }

  void Made(const fs::path& path) { made_.emplace_back(path, fs::path()); }
  void Moved(const fs::path& from, const fs::path& to) { made_.emplace_back(to, from); }
  void Keep() { made_.clear(); }

 private:
  std::vector<std::pair<fs::path, fs::path>> made_;
};

fs::path NewHiveName(const fs::path& hive) { return hive.string() + ".tidemark-new"; }

NewHive::NewHive(HiveReplacement replacement, std::string_view bytes)
    : replacement_(std::move(replacement)),
      fresh_(NewHiveName(replacement_.hive)),
      undo_(std::make_unique<Undo>()) {
  Step("write");
  undo_->Made(fresh_);
  WriteNew(fresh_, bytes);
  if (!Holds(fresh_, bytes)) throw HostedPcError(fresh_.string() + ": is not what was written");
  TakeOverAttributes(replacement_.hive, fresh_);
}

NewHive::~NewHive() = default;

void NewHive::PutInPlace() {
  const fs::path& hive = replacement_.hive;
  const fs::path folder = hive.parent_path();
  Step("keep");
  KeepFormer(hive, replacement_.former);
  undo_->Made(replacement_.former);
  for (const fs::path& log : replacement_.logs) {
    // The old hive is whole without them, and no log may ever lie beside a hive that it is not of.
    const fs::path aside = log.string() + replacement_.former.extension().string();
    Step("log");
    if (rename(log.c_str(), aside.c_str()) != 0) Refuse(log);
    undo_->Moved(log, aside);
  }
  Flush(folder, O_RDONLY | O_DIRECTORY);
  Step("rename");
  if (rename(fresh_.c_str(), hive.c_str()) != 0) Refuse(hive);
  undo_->Keep();
  in_place_ = true;
  Flush(folder, O_RDONLY | O_DIRECTORY);
  Step("done");
}

}  // namespace tidemark::hosted
