// Puts back what records hold. The plan is made before anything else changes the registry, for it
// also notes what stands where: a place that no deletion touched stays as it stood then.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "registry/complete_record.h"
#include "registry/record_contents.h"

namespace tidemark {

struct RestoreOutcome {
  RecordCounts put_back;
  std::size_t failed = 0;  // keys, values and files
};

class RestorePlan {
 public:
  // Takes a record in whose files lie in that folder. Later pieces count more than earlier ones.
  void Add(RecordContents contents, const std::string& folder);

  // Whether a record that was taken in holds it.
  bool Records(const RealKey& key) const;
  bool Records(const RealKey& key, std::string_view value_name) const;

  // A place that the plan's owner is about to have changed, and that is to be as it is now, unless
  // the record knows better; the latter only if it is there now.
  void Spare(const RealKey& key);
  void Spare(const RealKey& key, std::string_view value_name, bool if_it_stands);

  // Keeps what stands where something else was deleted and will come back. The number of such
  // values and files.
  std::size_t KeepReplaced(CompleteRecord& record) const;

  RestoreOutcome PutBack() const;

 private:
  struct PlannedValue {
    std::string name;
    std::optional<ExactValue> wanted;  // none: there is to be no such value
    bool recorded = false;
    std::size_t number = 0;  // in the order in which the record holds them
  };
  struct PlannedKey {
    RealKey key;
    bool recorded = false;
    bool was_there = false;
    std::map<std::string, PlannedValue> values;  // by name in capitals
  };

  PlannedKey& KeyAt(const RealKey& key);
  void AddValue(PlannedKey& key, RecordedValue value, bool gone);
  void PutBackValues(const PlannedKey& planned, RestoreOutcome& outcome) const;
  void PutBackFiles(RestoreOutcome& outcome) const;

  // By identity: those above come before those below.
  std::map<std::string, PlannedKey> keys_;
  struct PlannedFile {
    KeptFile file;
    std::string folder;
  };
  std::vector<PlannedFile> files_;
};

}  // namespace tidemark
