// The cells of a hive that is being checked: each may be asked for once, so that what is used twice
// and what runs in a circle shows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/hosted/hives/hive_records.h"

namespace tidemark::hosted {

class ClaimedCells : public HiveCells {
 public:
  // Goes through all bins and cells; throws HiveFault when one is not whole.
  explicit ClaimedCells(std::string_view file);

  std::string_view At(std::uint32_t offset, const char* fault) override;
  // Of a cell to which many references lead: not used up by this.
  std::string_view Shared(std::uint32_t offset, const char* fault) const;

 private:
  enum State : std::uint8_t { kNoCell, kAllocated, kUsed };

  // The start of the next bin.
  std::size_t ReadBin(std::size_t start);

  std::vector<State> states_;  // one for every 8 bytes, at which alone a cell can begin
};

}  // namespace tidemark::hosted
