#include "registry/restore_plan.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/file_system_object.h"
#include "platform/letter_case.h"

namespace tidemark {
namespace {

std::optional<ExactValue> Standing(const RealKey& place, std::string_view name) {
  ExactKey key;
  ExactValue value;
  if (ExactKey::Open(place.root, place.path, key) != ERROR_SUCCESS) return std::nullopt;
  if (key.Read(name, value) != ERROR_SUCCESS) return std::nullopt;
  return value;
}

bool Exists(const RealKey& place) {
  ExactKey key;
  return ExactKey::Open(place.root, place.path, key) != ERROR_FILE_NOT_FOUND;
}

// Of one that was made by the way; it goes when nothing is in it.
void DeleteUnusedKey(const RealKey& place) {
  ExactKey key;
  std::string name;
  if (ExactKey::Open(place.root, place.path, key) != ERROR_SUCCESS) return;
  if (key.ValueName(0, name) != ERROR_NO_MORE_ITEMS) return;
  if (key.SubKeyName(0, name) != ERROR_NO_MORE_ITEMS) return;
  DeleteEmptyKey(place.root, place.path);
}

// Keeps what is about to be replaced, and tells whether all of it could be kept.
bool IsKept(CompleteRecord& record, const std::function<void()>& keep) {
  const std::size_t failures = record.failures();
  keep();
  record.Replaced();
  return record.failures() == failures;
}

bool IsSameFile(const KeptFile& left, const KeptFile& right) {
  return left.checksum == right.checksum && left.size_bytes == right.size_bytes &&
         left.attributes == right.attributes &&
         left.written.dwLowDateTime == right.written.dwLowDateTime &&
         left.written.dwHighDateTime == right.written.dwHighDateTime;
}

}  // namespace

RestorePlan::PlannedKey& RestorePlan::KeyAt(const RealKey& key) {
  const auto [found, added] = keys_.try_emplace(Identity(key));
  PlannedKey& planned = found->second;
  if (added) {
    planned.key = key;
    planned.was_there = Exists(key);
  }
  return planned;
}

void RestorePlan::Add(RecordContents contents, const std::string& folder) {
  for (RecordPiece& piece : contents.pieces) {
    for (RecordedKey& recorded : piece.keys) {
      // What has stayed is a person's to change.
      if (piece.stayed.contains(Identity(recorded.key))) continue;
      PlannedKey& planned = KeyAt(recorded.key);
      planned.recorded = true;
      for (RecordedValue& value : recorded.values) AddValue(planned, std::move(value), piece.gone);
    }
  }
  for (KeptFile& file : contents.files) AddFile({std::move(file), folder});
}

// Whether a deletion was made that the record does not know of is told by what stands: nothing.
void RestorePlan::AddValue(PlannedKey& key, RecordedValue value, bool gone) {
  PlannedValue& planned = key.values[UpperCase(value.name)];
  if (planned.recorded && planned.recorded != value.value) {
    earlier_values_.push_back({key.key, {{planned.name, *std::move(planned.recorded)}}});
  }
  planned.name = std::move(value.name);
  planned.recorded = std::move(value.value);
  planned.number = key.values.size();
  planned.standing = gone ? std::nullopt : Standing(key.key, planned.name);
  planned.stays = planned.standing.has_value();
  if (planned.stays && planned.standing != planned.recorded) ++left_alone_;
}

void RestorePlan::AddFile(PlannedFile file) {
  const auto [found, added] = file_at_.try_emplace(UpperCase(file.file.path), files_.size());
  if (added) return files_.push_back(std::move(file));
  PlannedFile& before = files_[found->second];
  if (IsSameFile(before.file, file.file)) return;
  std::swap(before, file);
  earlier_files_.push_back(std::move(file));
}

bool RestorePlan::Records(const RealKey& key) const {
  const auto found = keys_.find(Identity(key));
  return found != keys_.end() && found->second.recorded;
}

bool RestorePlan::Records(const RealKey& key, std::string_view value_name) const {
  const auto found = keys_.find(Identity(key));
  if (found == keys_.end()) return false;
  const auto value = found->second.values.find(UpperCase(value_name));
  return value != found->second.values.end() && value->second.recorded.has_value();
}

void RestorePlan::Spare(const RealKey& key) {
  RealKey above = key;
  for (;;) {
    KeyAt(above);
    const auto end = above.path.rfind('\\');
    if (end == std::string::npos) return;
    above.path.resize(end);
  }
}

void RestorePlan::Spare(const RealKey& key, std::string_view value_name, bool if_it_stands) {
  auto standing = Standing(key, value_name);
  if (!standing && if_it_stands) return;
  PlannedKey& planned = KeyAt(key);
  const auto [found, added] = planned.values.try_emplace(UpperCase(value_name));
  if (!added) return;
  found->second.name = value_name;
  found->second.standing = std::move(standing);
  found->second.stays = true;
}

std::size_t RestorePlan::KeepEarlier(CompleteRecord& record) {
  std::size_t kept = 0;
  const auto count = [&](bool is_kept) { ++(is_kept ? kept : not_kept_); };
  for (const RecordedKey& key : earlier_values_) {
    const RecordedValue& value = key.values.front();
    count(IsKept(record, [&] { record.KeepValueOf(key.key, value.name, value.value); }));
  }
  for (const PlannedFile& planned : earlier_files_) {
    std::string bytes;
    count(ReadCopy(planned.folder, planned.file, bytes) &&
          IsKept(record, [&] { record.KeepFileOf(planned.file, bytes); }));
  }
  return kept;
}

bool RestorePlan::WillReplace(const PlannedFile& planned) const {
  std::string bytes;
  return planned.file.gone && FileSystemObject().FileExists(planned.file.path) &&
         ReadCopy(planned.folder, planned.file, bytes) && !StandsAsKept(planned.file, bytes);
}

ReplacedCounts RestorePlan::KeepReplaced(CompleteRecord& record) {
  ReplacedCounts kept;
  const auto stays = [&](const auto& keep) {
    const bool is_kept = IsKept(record, keep);
    ++(is_kept ? kept.newer : not_kept_);
    return !is_kept;
  };
  for (auto& [identity, planned] : keys_) {
    for (auto& named : planned.values) {
      PlannedValue& value = named.second;
      auto standing = value.recorded ? Standing(planned.key, value.name) : std::nullopt;
      if (!standing || standing == value.Wanted()) continue;
      const RealKey& key = planned.key;
      value.stays = stays([&] { record.KeepValue(key.root, key.path, value.name); });
      value.standing = std::move(standing);
    }
  }
  for (PlannedFile& planned : files_) {
    if (!WillReplace(planned)) continue;
    planned.stays = stays([&] { record.KeepFile(planned.file.path); });
  }
  // Last, so that the next restore brings these back, and each one has its turn.
  kept.earlier = KeepEarlier(record);
  return kept;
}

RestoreOutcome RestorePlan::PutBack() const {
  RestoreOutcome outcome;
  outcome.failed = not_kept_;
  outcome.left_alone = left_alone_;
  for (const auto& [identity, planned] : keys_) {
    ExactKey key;
    if (planned.recorded && !Exists(planned.key)) {
      if (ExactKey::Create(planned.key.root, planned.key.path, key) == ERROR_SUCCESS) {
        ++outcome.put_back.keys;
      } else {
        ++outcome.failed;
      }
    }
    PutBackValues(planned, outcome);
  }
  for (auto planned = keys_.rbegin(); planned != keys_.rend(); ++planned) {
    const PlannedKey& key = planned->second;
    if (!key.recorded && !key.was_there) DeleteUnusedKey(key.key);
  }
  PutBackFiles(outcome);
  return outcome;
}

void RestorePlan::PutBackValues(const PlannedKey& planned, RestoreOutcome& outcome) const {
  // The platform lists values in the order in which they are made.
  std::vector<const PlannedValue*> in_order;
  for (const auto& [name, value] : planned.values) in_order.push_back(&value);
  std::sort(in_order.begin(), in_order.end(),
            [](const PlannedValue* left, const PlannedValue* right) {
              return left->number < right->number;
            });
  ExactKey key;
  for (const PlannedValue* const one : in_order) {
    const PlannedValue& value = *one;
    const std::optional<ExactValue>& wanted = value.Wanted();
    if (Standing(planned.key, value.name) == wanted) continue;
    LSTATUS status = ERROR_SUCCESS;
    if (key.Handle() == nullptr) {
      status = ExactKey::Create(planned.key.root, planned.key.path, key);
    }
    if (status == ERROR_SUCCESS) {
      status = wanted ? key.Write(value.name, *wanted) : key.DeleteValue(value.name);
    }
    if (status != ERROR_SUCCESS) {
      ++outcome.failed;
    } else if (wanted) {
      ++outcome.put_back.values;
    }
  }
}

void RestorePlan::PutBackFiles(RestoreOutcome& outcome) const {
  for (const PlannedFile& planned : files_) {
    const KeptFile& file = planned.file;
    std::string bytes;
    if (planned.stays) continue;
    if (!ReadCopy(planned.folder, file, bytes)) {
      ++outcome.failed;
    } else if (!StandsAsKept(file, bytes)) {
      // A link that a person has made since stays where the record knows of no deletion.
      if (!file.gone && FileSystemObject().FileExists(file.path)) {
        ++outcome.left_alone;
        continue;
      }
      if (PutBackFile(file, bytes)) {
        ++outcome.put_back.files;
      } else {
        ++outcome.failed;
      }
    }
  }
}

}  // namespace tidemark
