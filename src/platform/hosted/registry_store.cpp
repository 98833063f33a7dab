#include "platform/hosted/registry_store.h"

#include <algorithm>
#include <utility>

#include "platform/hosted/registry_handles.h"
#include "platform/hosted/registry_limits.h"
#include "platform/hosted/registry_names.h"
#include "platform/hosted/registry_text.h"
#include "platform/registry_rules.h"

namespace tidemark::hosted {
namespace {

constexpr std::string_view kClassesPath = "Software\\Classes";

struct RootName {
  std::string_view name;
  HKEY key;
};

const RootName kRoots[] = {
    {"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},     {"HKEY_CURRENT_USER", HKEY_CURRENT_USER},
    {"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE},   {"HKEY_USERS", HKEY_USERS},
    {"HKEY_CURRENT_CONFIG", HKEY_CURRENT_CONFIG},
};

// The same key below another root.
RegistryKey* Counterpart(const RegistryKey& key, const RegistryKey* root, RegistryKey* other_root) {
  if (&key == root) return other_root;
  if (key.parent() == nullptr) return nullptr;
  RegistryKey* other_parent = Counterpart(*key.parent(), root, other_root);
  return other_parent == nullptr ? nullptr : other_parent->FindKey(key.name());
}

// The platform's limit; it also keeps walks up and down the tree within the stack.
constexpr int kDeepest = 512;

int Depth(const RegistryKey* key) {
  int depth = 0;
  for (; key != nullptr; key = key->parent()) ++depth;
  return depth;
}

void CopyKey(const RegistryKey& from, RegistryKey& to) {
  for (std::size_t i = 0; i < from.value_count(); ++i) {
    to.SetValue(from.value(i).name(), from.value(i).type(), from.value(i).data());
  }
  for (std::size_t i = 0; i < from.key_count(); ++i) {
    CopyKey(from.key(i), to.MakeKey(from.key(i).name()));
  }
}

bool LiesAtOrBelow(std::string_view name, std::string_view top) {
  return name.size() >= top.size() && SameName(name.substr(0, top.size()), top) &&
         (name.size() == top.size() || name[top.size()] == '\\');
}

}  // namespace

RegistryStore::RegistryStore(std::string_view user_sid)
    : machine_(nullptr, "HKEY_LOCAL_MACHINE"),
      users_(nullptr, "HKEY_USERS"),
      config_(nullptr, "HKEY_CURRENT_CONFIG"),
      aside_(nullptr, "Aside"),
      handles_(std::make_unique<RegistryHandles>(*this)) {
  SetUser(user_sid);
}

RegistryStore::~RegistryStore() = default;

void RegistryStore::SetUser(std::string_view sid) {
  current_user_ = &users_.MakeKey(sid);
  ++tree_version_;
}

void RegistryStore::Link(RegistryKey& parent, std::string_view name, RegistryKey& target) {
  auto listed = std::make_unique<RegistryKey>(&parent, name);
  if (const RegistryKey* const there = parent.FindKey(name)) {
    linked_.push_back(there);
    listed.reset();
  }
  links_.push_back({&parent, std::string(name), &target, std::move(listed)});
  linked_.insert(linked_.end(), {&parent, &target});
  ++tree_version_;
}

void RegistryStore::MarkSaved() {
  changed_ = false;
  for (MountedHive& mount : mounts_) mount.changed = false;
}

bool RegistryStore::ChangedBelow(const RegistryKey& mount) const {
  return std::any_of(mounts_.begin(), mounts_.end(),
                     [&](const auto& known) { return known.key == &mount && known.changed; });
}

void RegistryStore::CopyLinkedKeys() {
  for (const LinkedKey& link : links_) {
    if (link.target != &aside_) CopyKey(*link.target, link.parent->MakeKey(link.name));
  }
  links_.clear();
  ++tree_version_;
}

bool RegistryStore::IsLink(const RegistryView& parent, std::string_view name) const {
  return FindLink(parent.top, name) != nullptr || FindLink(parent.under, name) != nullptr;
}

const RegistryStore::LinkedKey* RegistryStore::FindLink(const RegistryKey* parent,
                                                        std::string_view name) const {
  for (const LinkedKey& link : links_) {
    if (link.parent == parent && SameName(link.name, name)) return &link;
  }
  return nullptr;
}

const RegistryStore::LinkedKey* RegistryStore::ListedLink(const RegistryView& view) const {
  for (const LinkedKey& link : links_) {
    if (link.parent == view.target() && link.listed != nullptr) return &link;
  }
  return nullptr;
}

RegistryKey* RegistryStore::Descend(RegistryKey* key, std::string_view path) const {
  while (key != nullptr) {
    const std::string_view part = NextPart(path);
    if (part.empty()) break;
    const LinkedKey* const link = FindLink(key, part);
    key = link != nullptr ? link->target : key->FindKey(part);
  }
  return key;
}

void RegistryStore::Load(const std::filesystem::path& file) {
  LoadRegistryText(file, *this);
  changed_ = false;
}

void RegistryStore::Save(const std::filesystem::path& file) const {
  SaveRegistryText(*this, file);
  changed_ = false;
}

void RegistryStore::DenyKey(std::string_view full_name, REGSAM rights) {
  const std::string_view root_name = full_name.substr(0, full_name.find('\\'));
  std::string rest(full_name.substr(root_name.size()));
  while (!rest.empty() && rest.back() == '\\') rest.pop_back();
  const std::string user = FullName(*current_user_);
  if (SameName(root_name, "HKEY_CLASSES_ROOT")) {
    const std::string below = std::string("\\").append(kClassesPath) + rest;
    denials_.push_back({user + below, rights});
    denials_.push_back({machine_.name() + below, rights});
  } else if (SameName(root_name, "HKEY_CURRENT_USER")) {
    denials_.push_back({user + rest, rights});
  } else {
    denials_.push_back({std::string(root_name) + rest, rights});
  }
}

void RegistryStore::AllowAll() { denials_.clear(); }

REGSAM RegistryStore::Denied(const RegistryKey& key) const {
  if (denials_.empty()) return 0;
  const std::string name = FullName(key);
  REGSAM denied = 0;
  for (const Denial& denial : denials_) {
    if (LiesAtOrBelow(name, denial.full_name)) denied |= denial.rights;
  }
  return denied;
}

REGSAM RegistryStore::Denied(const RegistryView& view) const {
  if (denials_.empty()) return 0;
  return (view.top == nullptr ? 0 : Denied(*view.top)) |
         (view.under == nullptr ? 0 : Denied(*view.under));
}

bool RegistryStore::IsRoot(HKEY key) const {
  return std::any_of(std::begin(kRoots), std::end(kRoots),
                     [key](const RootName& root) { return root.key == key; });
}

bool RegistryStore::IsRoot(std::string_view name) const {
  return std::any_of(std::begin(kRoots), std::end(kRoots),
                     [name](const RootName& root) { return SameName(root.name, name); });
}

RegistryView RegistryStore::Root(HKEY key) {
  if (key == HKEY_LOCAL_MACHINE) return {&machine_};
  if (key == HKEY_CLASSES_ROOT) return Classes();
  if (key == HKEY_CURRENT_USER) return {current_user_};
  if (key == HKEY_USERS) return {&users_};
  if (key == HKEY_CURRENT_CONFIG) return {&config_};
  return {};
}

RegistryView RegistryStore::Root(std::string_view name) {
  for (const RootName& root : kRoots) {
    if (SameName(root.name, name)) return Root(root.key);
  }
  return {};
}

RegistryView RegistryStore::Classes() {
  if (classes_version_ != tree_version_) {
    classes_ = {Descend(current_user_, kClassesPath), Descend(&machine_, kClassesPath), true};
    classes_version_ = tree_version_;
  }
  return classes_;
}

RegistryView RegistryStore::Open(const RegistryView& from, std::string_view path) {
  return {Descend(from.top, path), Descend(from.under, path), from.merged};
}

RegistryView RegistryStore::Create(const RegistryView& from, std::string_view path, bool* made) {
  RegistryView view = from;
  int depth = 0;
  *made = false;
  for (std::string_view part = NextPart(path); !part.empty(); part = NextPart(path)) {
    RegistryView next = Open(view, part);
    if (!next.exists()) {
      if (!*made && (Denied(view) & KEY_CREATE_SUB_KEY) != 0) return {};
      const RegistryKey* maker = view.under != nullptr ? view.under : view.top;
      // With all that is still to come below it.
      const std::string_view wanted(part.data(), part.size() + path.size());
      if (maker != nullptr && !CanTakeKey(*maker, wanted)) return {};
      depth = *made ? depth + 1 : Depth(view.target());
      if (depth >= kDeepest) return {};
      next = MakeBelow(view, part);
      if (!next.exists()) return {};
      *made = true;
    }
    view = next;
  }
  return view;
}

RegistryView RegistryStore::MakeBelow(const RegistryView& parent, std::string_view name) {
  RegistryKey* maker = parent.under != nullptr ? parent.under : parent.top;
  if (maker == nullptr) {  // HKEY_CLASSES_ROOT of a PC that has no classes yet
    bool made = false;
    maker = Create({&machine_}, kClassesPath, &made).top;
    if (maker == nullptr) return {};  // denied
  }
  RegistryKey* key = &maker->MakeKey(name);
  ++tree_version_;
  Changed(*maker);
  const bool below_user = parent.merged && maker == parent.top;
  if (!parent.merged || below_user) return {key, nullptr, parent.merged};
  return {nullptr, key, true};
}

bool RegistryStore::SetValue(RegistryKey& key, std::string_view name, DWORD type,
                             std::string_view data, std::optional<char> odd_byte) {
  if (!CanTakeValue(key, name, type, data)) return false;
  key.SetValue(name, type, data, odd_byte);
  Changed(key);
  return true;
}

bool RegistryStore::DeleteValue(RegistryKey& key, std::string_view name) {
  if (!CanLoseValues(key) || !key.DeleteValue(name)) return false;
  Changed(key);
  return true;
}

void RegistryStore::Changed(const RegistryKey& key) {
  changed_ = true;
  for (const RegistryKey* top = &key; !mounts_.empty() && top != nullptr; top = top->parent()) {
    for (MountedHive& mount : mounts_) mount.changed |= mount.key == top;
  }
  if (merged_.empty()) return;
  const auto found = merged_.find(&key);
  if (found == merged_.end()) return;
  const std::shared_ptr<Merged> merged = found->second;
  merged_.erase(merged->user_key);
  merged_.erase(merged->machine_key);
}

bool RegistryStore::IsFixed(const RegistryKey& key) const {
  return key.parent() == nullptr || &key == current_user_ ||
         std::find(linked_.begin(), linked_.end(), &key) != linked_.end() ||
         std::any_of(mounts_.begin(), mounts_.end(),
                     [&](const MountedHive& mount) { return mount.key == &key; });
}

void RegistryStore::DeleteKey(RegistryKey& key) {
  RegistryKey& parent = *key.parent();
  ++tree_version_;
  Changed(parent);
  MarkDeleted(parent.TakeKey(key));
}

void RegistryStore::MarkDeleted(std::unique_ptr<RegistryKey> key) {
  Changed(*key);
  while (key->key_count() > 0) {
    MarkDeleted(key->TakeKey(key->key(key->key_count() - 1)));
  }
  if (key->handles() > 0) {
    key->MarkDeleted();
    const RegistryKey* address = key.get();
    graveyard_.emplace(address, std::move(key));
  }
}

const RegistryStore::Merged& RegistryStore::MergedOf(const RegistryView& view) {
  const auto found = merged_.find(view.top);
  if (found != merged_.end()) return *found->second;
  const auto merged = std::make_shared<Merged>();
  merged->user_key = view.top;
  merged->machine_key = view.under;
  std::size_t user = 0;
  std::size_t machine = 0;
  while (user < view.top->key_count() || machine < view.under->key_count()) {
    int order = 0;
    if (user == view.top->key_count()) {
      order = 1;
    } else if (machine == view.under->key_count()) {
      order = -1;
    } else {
      order = CompareNames(view.top->key(user).name(), view.under->key(machine).name());
    }
    merged->keys.push_back(order <= 0 ? &view.top->key(user) : &view.under->key(machine));
    if (order <= 0) ++user;
    if (order >= 0) ++machine;
  }
  for (std::size_t i = 0; i < view.top->value_count(); ++i) {
    merged->values.push_back(&view.top->value(i));
  }
  for (std::size_t i = 0; i < view.under->value_count(); ++i) {
    const RegistryValue& value = view.under->value(i);
    if (view.top->FindValue(value.name()) == nullptr) merged->values.push_back(&value);
  }
  merged_[view.top] = merged;
  merged_[view.under] = merged;
  return *merged;
}

std::size_t RegistryStore::KeyCount(const RegistryView& view) {
  if (view.both()) return MergedOf(view).keys.size();
  if (!view.exists()) return 0;
  return view.target()->key_count() + (ListedLink(view) == nullptr ? 0 : 1);
}

std::size_t RegistryStore::ValueCount(const RegistryView& view) {
  if (view.both()) return MergedOf(view).values.size();
  return view.exists() ? view.target()->value_count() : 0;
}

const RegistryKey& RegistryStore::KeyAt(const RegistryView& view, std::size_t index) {
  if (view.both()) return *MergedOf(view).keys[index];
  const RegistryKey& key = *view.target();
  const LinkedKey* const link = ListedLink(view);
  if (link == nullptr) return key.key(index);
  const auto follows = [&](std::size_t at) {
    return CompareNames(key.key(at).name(), link->name) > 0;
  };
  if (index < key.key_count() && !follows(index)) return key.key(index);
  return index > 0 && follows(index - 1) ? key.key(index - 1) : *link->listed;
}

const RegistryValue& RegistryStore::ValueAt(const RegistryView& view, std::size_t index) {
  return view.both() ? *MergedOf(view).values[index] : view.target()->value(index);
}

const RegistryValue* RegistryStore::FindValue(const RegistryView& view,
                                              std::string_view name) const {
  const RegistryValue* value = view.top == nullptr ? nullptr : view.top->FindValue(name);
  if (value == nullptr && view.under != nullptr) value = view.under->FindValue(name);
  return value;
}

std::string RegistryStore::FullName(const RegistryKey& key) const {
  if (key.parent() == nullptr) return key.name();
  return FullName(*key.parent()).append("\\").append(key.name());
}

RegistryView RegistryStore::Refresh(const RegistryView& view) {
  RegistryView fresh = view;
  if (fresh.top != nullptr && fresh.top->deleted()) fresh.top = nullptr;
  if (fresh.under != nullptr && fresh.under->deleted()) fresh.under = nullptr;
  if (!fresh.merged || fresh.both()) return fresh;
  const RegistryView roots = Classes();
  if (fresh.top != nullptr)
    fresh.under = Counterpart(*fresh.top, roots.top, roots.under);
  else if (fresh.under != nullptr)
    fresh.top = Counterpart(*fresh.under, roots.under, roots.top);
  return fresh;
}

}  // namespace tidemark::hosted
