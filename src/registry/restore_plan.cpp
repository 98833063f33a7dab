#include "registry/restore_plan.h"

#include <algorithm>
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
  for (KeptFile& file : contents.files) files_.push_back({std::move(file), folder});
}

// Whether a deletion was made that the record does not know of is told by what stands: nothing.
void RestorePlan::AddValue(PlannedKey& key, RecordedValue value, bool gone) {
  PlannedValue& planned = key.values[UpperCase(value.name)];
  planned.name = std::move(value.name);
  planned.recorded = true;
  planned.number = key.values.size();
  std::optional<ExactValue> standing;
  if (!gone) standing = Standing(key.key, planned.name);
  planned.wanted = standing ? std::move(standing) : std::move(value.value);
}

bool RestorePlan::Records(const RealKey& key) const {
  const auto found = keys_.find(Identity(key));
  return found != keys_.end() && found->second.recorded;
}

bool RestorePlan::Records(const RealKey& key, std::string_view value_name) const {
  const auto found = keys_.find(Identity(key));
  if (found == keys_.end()) return false;
  const auto value = found->second.values.find(UpperCase(value_name));
  return value != found->second.values.end() && value->second.recorded;
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
  found->second.wanted = std::move(standing);
}

std::size_t RestorePlan::KeepReplaced(CompleteRecord& record) const {
  std::size_t replaced = 0;
  for (const auto& [identity, planned] : keys_) {
    for (const auto& [name, value] : planned.values) {
      const auto standing = value.recorded ? Standing(planned.key, value.name) : std::nullopt;
      if (!standing || standing == value.wanted) continue;
      record.KeepValue(planned.key.root, planned.key.path, value.name);
      record.Replaced();
      ++replaced;
    }
  }
  for (const PlannedFile& planned : files_) {
    std::string bytes;
    if (!planned.file.gone || !FileSystemObject().FileExists(planned.file.path) ||
        !ReadCopy(planned.folder, planned.file, bytes) || StandsAsKept(planned.file, bytes)) {
      continue;
    }
    record.KeepFile(planned.file.path);
    record.Replaced();
    ++replaced;
  }
  return replaced;
}

RestoreOutcome RestorePlan::PutBack() const {
  RestoreOutcome outcome;
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
    if (Standing(planned.key, value.name) == value.wanted) continue;
    LSTATUS status = ERROR_SUCCESS;
    if (key.Handle() == nullptr) {
      status = ExactKey::Create(planned.key.root, planned.key.path, key);
    }
    if (status == ERROR_SUCCESS) {
      status = value.wanted ? key.Write(value.name, *value.wanted) : key.DeleteValue(value.name);
    }
    if (status != ERROR_SUCCESS) {
      ++outcome.failed;
    } else if (value.wanted) {
      ++outcome.put_back.values;
    }
  }
}

void RestorePlan::PutBackFiles(RestoreOutcome& outcome) const {
  for (const PlannedFile& planned : files_) {
    const KeptFile& file = planned.file;
    std::string bytes;
    // A link that a person has made since stays where the record knows of no deletion.
    if (!file.gone && FileSystemObject().FileExists(file.path)) continue;
    if (!ReadCopy(planned.folder, file, bytes)) {
      ++outcome.failed;
    } else if (!StandsAsKept(file, bytes)) {
      if (PutBackFile(file, bytes)) {
        ++outcome.put_back.files;
      } else {
        ++outcome.failed;
      }
    }
  }
}

}  // namespace tidemark
