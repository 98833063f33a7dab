// The people who have a profile on a disk.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::hosted {

class RegistryStore;

struct DiskUser {
  std::string sid;
  std::string name;             // of the profile's folder
  std::string profile;          // "C:\Users\anna"
  std::uint64_t loaded_at = 0;  // when the profile was used last, in 100 ns since 1601; 0: unknown

  // No account of the system's own.
  bool IsPerson() const;
};

// All of ProfileList whose profile has a place, but for the system itself, whose key is .DEFAULT.
// The registry holds HKEY_LOCAL_MACHINE\SOFTWARE.
std::vector<DiskUser> ReadDiskUsers(RegistryStore& registry);

// The person of that name, which may be a SID, or with no name the one who logged on last. Null
// when there is none.
const DiskUser* ChooseDiskUser(const std::vector<DiskUser>& users, RegistryStore& registry,
                               std::string_view wanted);

}  // namespace tidemark::hosted
