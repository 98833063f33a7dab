#include <cstring>
#include <string>
#include <system_error>
#include <unordered_set>

#include "platform/hosted/hives/hive_changes.h"
#include "platform/hosted/hives/hive_comparison.h"
#include "platform/hosted/hives/hive_editor.h"
#include "platform/hosted/hives/hive_file.h"
#include "platform/hosted/hives/hive_order.h"
#include "platform/hosted/hives/hive_records.h"
#include "platform/hosted/hives/hive_text.h"
#include "platform/hosted/hosted_pc.h"

namespace tidemark::hosted {
namespace {

constexpr std::size_t kTimeOfBase = 12;
constexpr std::size_t kTimeOfKey = 8;  // behind the size of its cell
constexpr std::size_t kChecksum = 508;

template <class Number>
void Put(std::string& bytes, std::size_t position, Number number) {
  std::memcpy(bytes.data() + position, &number, sizeof number);
}

// Makes the changes in one pass, and keeps which keys got them.
class Writer {
 public:
  explicit Writer(std::string_view hive) : editor_(hive) {}

  std::string Write(const HiveChanges& changes, std::uint64_t now) {
    for (const HiveChanges::Key& change : changes.values) WriteValues(change.offset, *change.key);
    for (const HiveChanges::Deleted& change : changes.deleted) {
      editor_.DeleteKey(change.offset);
      touched_.insert(change.parent);
    }
    for (const HiveChanges::Key& change : changes.added) AddKey(change.offset, *change.key);
    std::string bytes = editor_.Bytes();
    for (const std::uint32_t parent : parents_) OrderSubKeys(bytes, parent, made_);
    for (const std::uint32_t key : touched_) Put(bytes, HiveFileOffset(key) + kTimeOfKey, now);
    Put(bytes, kTimeOfBase, now);
    Put(bytes, kChecksum, HiveChecksum(bytes));
    return bytes;
  }

  const std::unordered_set<std::uint32_t>& touched() const { return touched_; }

 private:
  void WriteValues(std::uint32_t offset, const RegistryKey& key) {
    std::vector<HiveEditor::Value> values;
    for (std::size_t i = 0; i < key.value_count(); ++i) {
      const RegistryValue& value = key.value(i);
      values.push_back({std::string(value.name()), value.type(), DataForHive(value)});
    }
    editor_.SetValues(offset, values);
    touched_.insert(offset);
  }

  void AddKey(std::uint32_t parent, const RegistryKey& key) {
    const std::uint32_t offset = editor_.AddKey(parent, key.name());
    touched_.insert({parent, offset});
    parents_.insert(parent);
    made_.insert(offset);
    if (key.value_count() > 0) WriteValues(offset, key);
    for (std::size_t i = 0; i < key.key_count(); ++i) AddKey(offset, key.key(i));
  }

  HiveEditor editor_;
  std::unordered_set<std::uint32_t> touched_;
  std::unordered_set<std::uint32_t> made_;
  std::unordered_set<std::uint32_t> parents_;  // of those
};

[[noreturn]] void Refuse(const HiveFile& hive, const std::string& why) {
  throw HostedPcError(hive.path.string() + ": can't be changed: " + why);
}

}  // namespace

bool DiffersFromHive(const HiveFile& hive, const RegistryKey& top) {
  return hive.report.writable() && !FindHiveChanges(hive.bytes, top).empty();
}

std::string WriteHive(const HiveFile& hive, const RegistryKey& top, std::uint64_t now) {
  if (!hive.report.writable()) Refuse(hive, "it " + hive.report.why);
  const HiveChanges changes = FindHiveChanges(hive.bytes, top);
  if (changes.empty()) return hive.bytes;
  try {
    Writer writer(hive.bytes);
    std::string bytes = writer.Write(changes, now);
    const HiveReport report = CheckHive(bytes);
    if (report.state != HiveState::kSound) Refuse(hive, "what was written " + report.why);
    if (!FindHiveChanges(bytes, top).empty() ||
        !KeepsWhatKeysHave(hive.bytes, bytes, writer.touched())) {
      Refuse(hive, "what was written is not what was meant");
    }
    return bytes;
  } catch (const std::system_error& error) {
    Refuse(hive, error.code().message());
  } catch (const HiveFault& fault) {
    Refuse(hive, std::string("the library wrote ") + fault.what);
  }
}

}  // namespace tidemark::hosted
