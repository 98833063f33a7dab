// Reads a complete record (complete_record.h) back: what is whole in it, wherever it was cut and
// whatever stands between.
#pragma once

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "registry/exact_registry.h"
#include "registry/kept_files.h"
#include "registry/real_keys.h"

namespace tidemark {

struct RecordedValue {
  std::string name;
  ExactValue value;
};

struct RecordedKey {
  RealKey key;
  std::vector<RecordedValue> values;
};

struct RecordPiece {
  std::vector<RecordedKey> keys;
  bool is_value = false;         // alone, of a key that stays
  bool gone = false;             // the deletion was made; else the record does not know of it
  std::set<std::string> stayed;  // the identities of the keys that were still there behind it
};

struct RecordContents {
  std::vector<RecordPiece> pieces;  // in the order in which they were kept
  std::vector<KeptFile> files;
  std::size_t damaged = 0;  // pieces and files that are there in part
  std::size_t lost = 0;     // those that could not be kept; of some, part may be there
  bool cut = false;         // its end is missing, or all of it

  std::size_t Missing() const { return std::max(damaged, lost); }
  bool IsWhole() const { return Missing() == 0 && !cut; }
};

// Any bytes do.
RecordContents ReadRecordScript(std::string_view bytes);

// Of a record's folder. What is there and can't be read is damaged.
RecordContents ReadRecord(const std::string& folder);

// What a record holds, for a person.
struct RecordCounts {
  std::size_t keys = 0;
  std::size_t values = 0;
  std::size_t files = 0;
};
RecordCounts CountsOf(const RecordContents& contents);
// "74 keys, 31 values, 12 shortcuts".
std::string CountsText(const RecordCounts& counts);

// Deletes the folder with all that a record puts into it.
void RemoveRecord(const std::string& folder);

}  // namespace tidemark
