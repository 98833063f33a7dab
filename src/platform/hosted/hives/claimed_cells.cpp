#include "platform/hosted/hives/claimed_cells.h"

namespace tidemark::hosted {
namespace {

constexpr std::size_t kBinAlignment = 4096;
constexpr std::size_t kBinHeader = 32;
constexpr std::size_t kCellAlignment = 8;

}  // namespace

ClaimedCells::ClaimedCells(std::string_view file)
    : HiveCells(file), states_(bins().size() / kCellAlignment) {
  for (std::size_t bin = 0; bin < bins().size();) bin = ReadBin(bin);
}

std::string_view ClaimedCells::At(std::uint32_t offset, const char* fault) {
  const std::string_view cell = Shared(offset, fault);
  State& state = states_[offset / kCellAlignment];
  if (state == kUsed) throw HiveFault{"two references to one cell", HiveFileOffset(offset)};
  state = kUsed;
  return cell;
}

std::string_view ClaimedCells::Shared(std::uint32_t offset, const char* fault) const {
  const std::string_view cell = Peek(offset, fault);
  if (states_[offset / kCellAlignment] == kNoCell) throw HiveFault{fault, HiveFileOffset(offset)};
  return cell;
}

std::size_t ClaimedCells::ReadBin(std::size_t start) {
  const std::string_view bin = bins().substr(start);
  if (bin.size() < kBinAlignment || !bin.starts_with("hbin") || HiveNumber32(bin, 4) != start) {
    throw HiveFault{"no bin where one should be", HiveFileOffset(start)};
  }
  const std::size_t size = HiveNumber32(bin, 8);
  if (size == 0 || size % kBinAlignment != 0 || size > bin.size()) {
    throw HiveFault{"a bin of impossible size", HiveFileOffset(start)};
  }
  for (std::size_t cell = kBinHeader; cell < size;) {
    const std::int64_t signed_size = static_cast<std::int32_t>(HiveNumber32(bin, cell));
    const auto cell_size = static_cast<std::size_t>(signed_size < 0 ? -signed_size : signed_size);
    if (cell_size == 0 || cell_size % kCellAlignment != 0 || cell_size > size - cell) {
      throw HiveFault{"a cell of impossible size", HiveFileOffset(start + cell)};
    }
    if (signed_size < 0) states_[(start + cell) / kCellAlignment] = kAllocated;
    cell += cell_size;
  }
  return start + size;
}

}  // namespace tidemark::hosted
