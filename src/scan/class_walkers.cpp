// The walkers of the class tree: COM classes, interfaces, type libraries.
#include <array>
#include <optional>
#include <string_view>

#include "helpers/text_helpers.h"
#include "platform/letter_case.h"
#include "registry/mdlRegistry.h"
#include "scan/results.h"
#include "scan/walk.h"
#include "scan/walkers.h"
#include "window/run.h"

namespace tidemark {
namespace {

enum class Data { kEmpty, kPresent, kOpensWithBrace };

// Every name, or exactly this one in capitals; an empty name is the key's default value.
struct NameIs {
  bool any = false;
  std::string_view capitals;
};
constexpr NameIs kAnyName{true, {}};
constexpr NameIs kDefaultValue{false, {}};

// Every leaf, or one of these.
struct LeafIs {
  std::string_view first;
  std::string_view second;
};
constexpr LeafIs kAnyLeaf{};

// What a class key's value without a path may get wrong.
struct ClassRule {
  Data data;
  NameIs name;
  LeafIs leaf;
  // With a prefix: only a finding when prefix + data is no key of HKEY_CLASSES_ROOT.
  std::optional<std::string_view> must_exist_under;
  std::string_view reason;  // or, when empty, the text at reason_index
  std::size_t reason_index = 0;
};

// The first rule whose data, name and leaf fit decides, also when it then finds nothing.
constexpr std::array kClassRules = {
    ClassRule{Data::kEmpty, kAnyName, {"TYPELIB", {}}, {}, "no value for TypeLib"},
    ClassRule{Data::kOpensWithBrace,
              kDefaultValue,
              {"TYPELIB", {}},
              "TYPELIB\\",
              "Points to missing TypeLib"},
    ClassRule{Data::kEmpty, kDefaultValue, {"CLSID", {}}, {}, "No value for CLSID"},
    ClassRule{
        Data::kOpensWithBrace, kDefaultValue, {"CLSID", {}}, "CLSID\\", "Points to missing CLSID"},
    ClassRule{Data::kEmpty,
              kDefaultValue,
              {"PROGID", "VERSIONINDEPENDENTPROGID"},
              {},
              "Points to missing progid"},
    ClassRule{Data::kPresent, kDefaultValue, {"PROGID", {}}, "", "Points to missing progid"},
    ClassRule{Data::kEmpty, kDefaultValue, {"INPROCSERVER32", {}}, {}, {}, kEmptyInprocServer32},
    ClassRule{Data::kEmpty, kDefaultValue, {"INPROCSERVER", {}}, {}, {}, kEmptyInprocServer},
    ClassRule{Data::kEmpty, {false, "CLSID"}, kAnyLeaf, {}, {}, kEmptyClsid},
    ClassRule{Data::kPresent, {false, "TYPELIB"}, kAnyLeaf, "TYPELIB\\", {}, kInvalidTypeLib},
    // Under a key "Progid", unlike the default value of a ProgID key above. On purpose.
    ClassRule{Data::kPresent, {false, "PROGID"}, kAnyLeaf, "Progid\\", {}, kInvalidProgId},
    ClassRule{Data::kEmpty, {false, "INPROCSERVER32"}, kAnyLeaf, {}, {}, kEmptyInprocServer32},
    ClassRule{Data::kEmpty, {false, "INPROCSERVER"}, kAnyLeaf, {}, {}, kEmptyInprocServer},
};

bool Fits(const ClassRule& rule, std::string_view data, std::string_view capital_name,
          std::string_view leaf) {
  if (data.empty() != (rule.data == Data::kEmpty)) return false;
  if (rule.data == Data::kOpensWithBrace && data.front() != '{') return false;
  if (!rule.name.any && rule.name.capitals != capital_name) return false;
  return rule.leaf.first.empty() || leaf == rule.leaf.first ||
         (!rule.leaf.second.empty() && leaf == rule.leaf.second);
}

// The reason why a value of a class key is a finding; no value when it is none.
std::optional<std::string> Judge(const frmMain& window, const WalkedValue& value,
                                 std::string_view leaf) {
  if (value.data.find(":\\") != std::string::npos) {
    if (!IsInvalidPath(value.data)) return std::nullopt;
    return window.Reasons[kInvalidPath];
  }
  const std::string capital_name = UpperCase(value.name);
  for (const ClassRule& rule : kClassRules) {
    if (!Fits(rule, value.data, capital_name, leaf)) continue;
    if (rule.must_exist_under &&
        RegKeyExists(HKEY_CLASSES_ROOT, std::string(*rule.must_exist_under).append(value.data))) {
      return std::nullopt;
    }
    return rule.reason.empty() ? window.Reasons[rule.reason_index] : std::string(rule.reason);
  }
  return std::nullopt;
}

}  // namespace

void ScanClassRoot(frmMain& window, HKEY hive, const std::string& key) {
  if (MustEnd(window)) return;
  const WalkedKey walked(hive, key);
  window.pbarScan.SetValue(0);
  window.pbarScan.SetMin(0);
  window.pbarScan.SetMax(static_cast<int>(walked.sub_keys));
  for (DWORD index = 0; index < walked.sub_keys; ++index) {
    const std::string name = walked.SubKeyName(index);
    if (!name.empty()) ScanClassKey(window, hive, ChildPath(key, name));
    window.pbarScan.SetValue(static_cast<int>(index));
    if (YieldAndTestStop(window)) return;
  }
}

void ScanClassKey(frmMain& window, HKEY hive, const std::string& key) {
  if (MustEnd(window)) return;
  UpdStatus(window, key, "");
  const WalkedKey walked(hive, key);
  const std::string leaf = CapitalLeaf(key);
  const bool judged = leaf.find("MSTCP") == std::string::npos;
  for (DWORD index = 0; index < walked.values; ++index) {
    WalkedValue value(walked, index);
    UpdStatus(window, key, value.name);
    StripNull(value.name);
    if (judged && value.is_there) {
      if (const auto reason = Judge(window, value, leaf)) {
        AddtoList(window, hive, key, value.name, value.data, value.type, *reason);
      }
    }
    if (YieldAndTestStop(window)) return;
  }
  for (DWORD index = 0; index < walked.sub_keys; ++index) {
    const std::string name = walked.SubKeyName(index);
    if (!name.empty()) ScanClassKey(window, hive, ChildPath(key, name));
    if (YieldAndTestStop(window)) return;
  }
}

}  // namespace tidemark
