// What a repair and the import of its undo file come to, told from the findings and the registry of
// before: exactly that registry, but for what an undo file does not carry.
//
// Of a value that was kept by itself: an expandable text or a list of texts comes back as a plain
// text (a list's first), a value of a type without text as an empty one, and one with a quote in
// its name or data is refused by the editor. Of a key that was kept with all below it: expandable
// texts and lists come back with every byte of their 16-bit form as a character, if the editor
// exports 16-bit text, for the undo file's header says 8-bit; the capture of a key that had gone
// before is the capture made before it, and one that the editor had not finished is none. Of both:
// what the system's code page lacks.
#pragma once

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/code_page.h"
#include "platform/unicode.h"
#include "tests/support/registry_snapshot.h"
#include "toolkit/list_view.h"
#include "window/finding_columns.h"

namespace tidemark {

inline std::string Narrowed(const std::string& text) {
  return FromSystemCodePage(ToSystemCodePage(text));
}

// As a value comes back that was kept by itself; nothing when the editor refuses it.
inline std::optional<TestValue> CarriedAlone(const std::string& name, const TestValue& value) {
  if (name.find('"') != std::string::npos) return std::nullopt;
  if (value.type == REG_DWORD || value.type == REG_BINARY) return value;
  const bool is_text =
      value.type == REG_SZ || value.type == REG_EXPAND_SZ || value.type == REG_MULTI_SZ;
  const std::string text = is_text ? value.bytes.substr(0, value.bytes.find('\0')) : "";
  if (text.find('"') != std::string::npos) return std::nullopt;
  return TestValue{REG_SZ, Narrowed(text) + '\0'};
}

// As it comes back with its key.
inline TestValue CarriedWithKey(const TestValue& value, bool eight_bit) {
  if (value.type == REG_SZ) return {REG_SZ, Narrowed(value.bytes)};
  if (value.type != REG_EXPAND_SZ && value.type != REG_MULTI_SZ) return value;
  return {value.type,
          eight_bit ? Narrowed(value.bytes) : FromSystemCodePage(Utf16FromUtf8(value.bytes))};
}

class UndoModel {
 public:
  UndoModel(RegistrySnapshot registry, bool eight_bit)
      : before_(std::move(registry)), state_(before_), eight_bit_(eight_bit) {}

  void Deny(const std::string& key) { denied_.push_back(UpperCase(key) + "\\"); }

  void Repair(const ListItem& row) {
    const std::string code = row.SubItem(kTestCode).String();
    const std::string name = row.SubItem(kValueName).String();
    std::string key = UpperCase(row.Caption().View());
    const std::string leaf = key.substr(key.rfind('\\') + 1);
    if (code == "SHORTCUTS") return;
    if (code == "HELP" || code == "DLL" || code == "FONT" || code == "STARTUP") {
      return RepairValue(key + "\\", name);
    }
    if (code == "CLSID" || code == "INTERFACE" || code == "LIB") {
      if (!name.empty()) return RepairValue(key + "\\", name);
      const bool is_server = leaf == "INPROCSERVER32" || leaf == "INPROCSERVER";
      if (code == "CLSID" && is_server) key.resize(key.find('}') + 1);
    }
    RepairKey(key + "\\");
  }

  // After the repair, and after the import of what was kept.
  const RegistrySnapshot& repaired() const { return state_; }
  RegistrySnapshot Restored(RegistrySnapshot onto) const {
    for (const auto& record : records_) {
      for (const auto& [entry, value] : record) {
        const std::string key = KeyOf(entry);
        for (auto end = key.find('\\'); end != std::string::npos; end = key.find('\\', end + 1)) {
          onto.try_emplace(key.substr(0, end + 1));
        }
        onto[entry] = value;
      }
    }
    return onto;
  }
  RegistrySnapshot Restored() const { return Restored(state_); }

  bool IsKeptAlone(const std::string& entry) const { return kept_alone_.contains(entry); }
  // Whether some record holds the entry so.
  bool MayComeBackAs(const RegistrySnapshot::value_type& entry) const {
    return std::any_of(records_.begin(), records_.end(), [&entry](const auto& record) {
      const auto found = record.find(entry.first);
      return found != record.end() && found->second == entry.second;
    });
  }

 private:
  static std::string KeyOf(const std::string& entry) {
    const auto end = entry.find("\\\\");
    return end == std::string::npos ? entry : entry.substr(0, end + 1);
  }
  bool IsDenied(const std::string& key) const {
    return std::any_of(denied_.begin(), denied_.end(),
                       [&key](const std::string& denied) { return key.starts_with(denied); });
  }
  // What can't go keeps the keys above it.
  bool Stays(const std::string& key) const {
    return IsDenied(key) ||
           std::any_of(denied_.begin(), denied_.end(),
                       [&key](const std::string& denied) { return denied.starts_with(key); });
  }

  void RepairValue(const std::string& key, const std::string& name) {
    const std::string entry = key + "\\" + UpperCase(name);
    records_.push_back({{key, {}}});
    if (const auto carried = CarriedAlone(name, before_.at(entry))) {
      const std::string its_entry = key + "\\" + UpperCase(Narrowed(name));
      records_.back()[its_entry] = *carried;
      kept_alone_.insert(its_entry);
    }
    if (!IsDenied(key)) state_.erase(entry);
  }

  void RepairKey(const std::string& key) {
    if (state_.contains(key)) {
      last_capture_.clear();
      for (const auto& [entry, value] : state_) {
        if (entry.starts_with(key)) last_capture_[entry] = CarriedWithKey(value, eight_bit_);
      }
    }
    records_.push_back(last_capture_);
    std::erase_if(state_, [&](const auto& entry) {
      const std::string its_key = KeyOf(entry.first);
      return its_key.starts_with(key) && !Stays(its_key);
    });
  }

  RegistrySnapshot before_;
  RegistrySnapshot state_;
  RegistrySnapshot last_capture_;
  std::vector<RegistrySnapshot> records_;
  std::set<std::string> kept_alone_;
  std::vector<std::string> denied_;
  bool eight_bit_;
};

}  // namespace tidemark
