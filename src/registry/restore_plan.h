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
  std::size_t failed = 0;      // keys, values and files
  std::size_t left_alone = 0;  // of which something else stands that no deletion is known of
};

// What a restore takes the place of, and has therefore kept in a record of its own.
struct ReplacedCounts {
  std::size_t newer = 0;    // stood there
  std::size_t earlier = 0;  // came before another one of its name in the same record
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

  // Keeps what stands where something else was deleted and will come back, and what will not come
  // back because the record holds a later one. What can't be kept is left as it stands, and counts
  // as failed.
  ReplacedCounts KeepReplaced(CompleteRecord& record);

  RestoreOutcome PutBack() const;

 private:
  struct PlannedValue {
    std::string name;
    std::optional<ExactValue> recorded;
    std::optional<ExactValue>
        standing;  // if that is to be there afterwards; or there is to be none
    bool stays = false;
    std::size_t number = 0;  // in the order in which the record holds them

    const std::optional<ExactValue>& Wanted() const { return stays ? standing : recorded; }
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

  struct PlannedFile {
    KeptFile file;
    std::string folder;
    bool stays = false;
  };
  void AddFile(PlannedFile file);
  std::size_t KeepEarlier(CompleteRecord& record);
  bool WillReplace(const PlannedFile& planned) const;

  // By identity: those above come before those below.
  std::map<std::string, PlannedKey> keys_;
  std::vector<PlannedFile> files_;
  std::map<std::string, std::size_t> file_at_;  // the last one, by path in capitals
  std::vector<RecordedKey> earlier_values_;
  std::vector<PlannedFile> earlier_files_;
  std::size_t not_kept_ = 0;
  std::size_t left_alone_ = 0;
};

}  // namespace tidemark
