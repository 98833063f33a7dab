#include "platform/hosted/short_names.h"

#include <sys/xattr.h>

#include <cerrno>

namespace tidemark::hosted {

std::optional<std::string> (*short_name_of)(const std::string& host_path) = nullptr;

std::optional<std::string> ShortNameOf(const std::string& host_path) {
  if (short_name_of != nullptr) return short_name_of(host_path);
  char name[64] = "";
  const ssize_t size = lgetxattr(host_path.c_str(), "system.ntfs_dos_name", &name[0], sizeof(name));
  if (size >= 0) return std::string(&name[0], static_cast<std::size_t>(size));
  return errno == ENODATA ? std::optional<std::string>("") : std::nullopt;
}

}  // namespace tidemark::hosted
