// The hosted PC's registry in memory: the tree of keys with its five roots, the merged view of the
// classes, denied keys, and deleted keys that are still open. It knows nothing of the platform
// calls (registry_calls.cpp) or of the text format (registry_text.h).
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/hosted/registry_key.h"
#include "platform/winapi.h"

namespace tidemark::hosted {

class RegistryHandles;

// What a handle stands for: one key; or, in HKEY_CLASSES_ROOT, the user's key over the machine's,
// of which one may be missing.
struct RegistryView {
  RegistryKey* top = nullptr;    // in the merged view the user's
  RegistryKey* under = nullptr;  // in the merged view the machine's
  bool merged = false;

  bool exists() const { return top != nullptr || under != nullptr; }
  bool both() const { return top != nullptr && under != nullptr; }
  // Where values are written: the user's key if there is one.
  RegistryKey* target() const { return top != nullptr ? top : under; }
};

class RegistryStore {
 public:
  // user_sid names the key of HKEY_USERS that HKEY_CURRENT_USER stands for.
  explicit RegistryStore(std::string_view user_sid);
  ~RegistryStore();
  RegistryStore(const RegistryStore&) = delete;
  RegistryStore& operator=(const RegistryStore&) = delete;

  // Reads a registry.reg strictly; throws HostedPcError with file and line.
  void Load(const std::filesystem::path& file);
  // Writes the whole registry as UTF-16LE version 5.00 text; throws HostedPcError.
  void Save(const std::filesystem::path& file) const;
  // Whether anything was changed since Load, Save or MarkSaved.
  bool changed() const { return changed_; }
  // To be called by who fills the registry, or stores it, in another way.
  void MarkSaved();

  // From here on HKEY_CURRENT_USER stands for this key of HKEY_USERS, which is made if need be.
  void SetUser(std::string_view sid);
  // Lets the name below the key stand for the target, as the platform's symbolic links do: the name
  // is enumerated, and who opens it is at the target. Neither can be deleted, and the link is not
  // stored.
  void Link(RegistryKey& parent, std::string_view name, RegistryKey& target);
  // Puts a copy of what it leads to in the place of each link within the roots.
  void CopyLinkedKeys();
  // Whether the name below the key is a link.
  bool IsLink(const RegistryView& parent, std::string_view name) const;
  // Says that a hive hangs on the key, which then can't be deleted. Whether anything below it was
  // changed since then, or MarkSaved, is told by key.
  void Mount(const RegistryKey& key) { mounts_.push_back({&key, false}); }
  bool ChangedBelow(const RegistryKey& mount) const;
  // The root of a tree that lies in none of the roots: what a link leads to.
  RegistryKey& Aside() { return aside_; }

  // From here on every open of the key (full name, "HKEY_LOCAL_MACHINE\Software\X") or of what lies
  // below it that asks for any right in `rights` answers ERROR_ACCESS_DENIED, and so does every
  // call on it that needs one of them. Whoever denies DELETE or KEY_SET_VALUE denies the key's
  // deletion. An open for "whatever is allowed" (RegOpenKeyA) fails only when no right is left.
  void DenyKey(std::string_view full_name, REGSAM rights);
  void AllowAll();

  // The root of a predefined handle, or of its spelled-out name in any case; a view that does not
  // exist when there is no such root. HKEY_CLASSES_ROOT exists even when neither key does.
  bool IsRoot(HKEY key) const;
  RegistryView Root(HKEY key);
  bool IsRoot(std::string_view name) const;
  RegistryView Root(std::string_view name);

  // Those that hold keys of their own.
  std::array<const RegistryKey*, 3> RealRoots() const { return {&machine_, &users_, &config_}; }

  // The parts of a path are divided by backslashes; empty parts don't count.
  RegistryView Open(const RegistryView& from, std::string_view path);
  // Makes the keys that are missing. In the merged view a key is made below the machine's key,
  // unless only the user's is there. The view does not exist when the last key that was there
  // denies it or can't take the others, or when the path goes deeper than 512 keys.
  RegistryView Create(const RegistryView& from, std::string_view path, bool* made);
  // False when the key can't take it (registry_limits.h).
  bool SetValue(RegistryKey& key, std::string_view name, DWORD type, std::string_view data,
                std::optional<char> odd_byte = {});
  // False also when there is none.
  bool DeleteValue(RegistryKey& key, std::string_view name);
  // With all below it, of a key that can be lost (registry_limits.h). Keys that are open stay in
  // memory, marked as deleted.
  void DeleteKey(RegistryKey& key);
  // Roots and what a hive hangs on can't be deleted.
  bool IsFixed(const RegistryKey& key) const;

  // The rights that are denied on a key.
  REGSAM Denied(const RegistryKey& key) const;
  REGSAM Denied(const RegistryView& view) const;

  // By index: of the merged view, the sorted union of the sub-keys; the user's values, then those
  // of the machine's that the user's don't hide.
  std::size_t KeyCount(const RegistryView& view);
  std::size_t ValueCount(const RegistryView& view);
  const RegistryKey& KeyAt(const RegistryView& view, std::size_t index);
  const RegistryValue& ValueAt(const RegistryView& view, std::size_t index);
  const RegistryValue* FindValue(const RegistryView& view, std::string_view name) const;

  // "HKEY_LOCAL_MACHINE\Software\X".
  std::string FullName(const RegistryKey& key) const;
  // Brings a view that was opened before up to date: deleted keys are left out, and a half that was
  // made meanwhile is added.
  RegistryView Refresh(const RegistryView& view);
  // Goes up with every key made or deleted.
  std::uint64_t tree_version() const { return tree_version_; }

  RegistryHandles& handles() { return *handles_; }
  // To be called when the last handle of a deleted key was closed.
  void Bury(const RegistryKey& key) { graveyard_.erase(&key); }

 private:
  struct Denial {
    std::string full_name;
    REGSAM rights;
  };
  struct Merged {
    std::vector<const RegistryKey*> keys;
    std::vector<const RegistryValue*> values;
    const RegistryKey* user_key;
    const RegistryKey* machine_key;
  };

  struct LinkedKey {
    RegistryKey* parent;
    std::string name;
    RegistryKey* target;
    std::unique_ptr<RegistryKey> listed;  // stands in the list; null when a key of that name does
  };

  RegistryView Classes();
  RegistryKey* Descend(RegistryKey* key, std::string_view path) const;
  const LinkedKey* FindLink(const RegistryKey* parent, std::string_view name) const;
  // The link that the view lists beside its keys; null when there is none.
  const LinkedKey* ListedLink(const RegistryView& view) const;
  RegistryView MakeBelow(const RegistryView& parent, std::string_view name);
  const Merged& MergedOf(const RegistryView& view);
  void Changed(const RegistryKey& key);
  void MarkDeleted(std::unique_ptr<RegistryKey> key);

  RegistryKey machine_;
  RegistryKey users_;
  RegistryKey config_;
  RegistryKey aside_;
  RegistryKey* current_user_ = nullptr;
  std::vector<LinkedKey> links_;
  std::vector<const RegistryKey*> linked_;  // both ends of links
  struct MountedHive {
    const RegistryKey* key;
    bool changed;
  };
  std::vector<MountedHive> mounts_;
  mutable bool changed_ = false;
  std::uint64_t tree_version_ = 1;
  RegistryView classes_;
  std::uint64_t classes_version_ = 0;
  std::vector<Denial> denials_;
  std::unordered_map<const RegistryKey*, std::shared_ptr<Merged>> merged_;  // by either key
  std::unordered_map<const RegistryKey*, std::unique_ptr<RegistryKey>> graveyard_;
  std::unique_ptr<RegistryHandles> handles_;
};

}  // namespace tidemark::hosted
