// The security records of a hive, which its keys share and which hang together in a ring.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/hosted/hives/claimed_cells.h"

namespace tidemark::hosted {

class SecurityRing {
 public:
  explicit SecurityRing(ClaimedCells& cells) : cells_(cells) {}

  // A key names the record as its own.
  void AddUser(std::uint32_t record);

  // To be called when all users are known: goes once around and throws HiveFault when the ring is
  // broken or lacks one of their records. False when a record counts fewer keys than use it: the
  // library that writes would take it away with the last that it knows of.
  bool Check();

 private:
  struct Users {
    std::uint32_t record;
    std::uint32_t count;
  };

  std::string_view Record(std::uint32_t offset) const;
  std::vector<Users>::iterator Find(std::uint32_t record);
  // Whether it is one of the users' records and counts too few of them.
  bool CheckRecord(std::uint32_t offset, std::uint32_t previous, std::size_t* met);

  ClaimedCells& cells_;
  std::vector<Users> users_;  // sorted by record
  std::size_t last_ = 0;      // whose count went up last: neighbours share their record
};

}  // namespace tidemark::hosted
