#include <fstream>

#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_text.h"

namespace tidemark::hosted {
namespace {

void WriteValue(const RegistryValue& value, ScriptWriter& writer) {
  writer.Value(value.name(), value.type(), value.data(), value.odd_byte());
}

// The default value comes first.
void WriteValues(const RegistryKey& key, ScriptWriter& writer) {
  const RegistryValue* first = key.FindValue("");
  if (first != nullptr) WriteValue(*first, writer);
  for (std::size_t i = 0; i < key.value_count(); ++i) {
    if (!key.value(i).name().empty()) WriteValue(key.value(i), writer);
  }
}

void WriteTree(const RegistryKey& key, std::string& full_name, ScriptWriter& writer) {
  writer.Key(full_name);
  WriteValues(key, writer);
  const std::size_t size = full_name.size();
  for (std::size_t i = 0; i < key.key_count(); ++i) {
    full_name.append("\\").append(key.key(i).name());
    WriteTree(key.key(i), full_name, writer);
    full_name.resize(size);
  }
}

void WriteView(RegistryStore& store, const RegistryView& view, std::string& full_name,
               ScriptWriter& writer) {
  if (!view.both()) {
    if (view.exists()) WriteTree(*view.target(), full_name, writer);
    return;
  }
  writer.Key(full_name);
  const RegistryValue* first = store.FindValue(view, "");
  if (first != nullptr) WriteValue(*first, writer);
  for (std::size_t i = 0; i < store.ValueCount(view); ++i) {
    const RegistryValue& value = store.ValueAt(view, i);
    if (!value.name().empty()) WriteValue(value, writer);
  }
  const std::size_t size = full_name.size();
  for (std::size_t i = 0; i < store.KeyCount(view); ++i) {
    const std::string& name = store.KeyAt(view, i).name();
    full_name.append("\\").append(name);
    WriteView(store, store.Open(view, name), full_name, writer);
    full_name.resize(size);
  }
}

std::size_t CountTree(RegistryStore& store, const RegistryView& view) {
  std::size_t count = 1 + store.ValueCount(view);
  for (std::size_t i = 0; i < store.KeyCount(view); ++i) {
    count += CountTree(store, store.Open(view, store.KeyAt(view, i).name()));
  }
  return count;
}

// A name with its root spelled out; nothing is found by an empty one.
RegistryView Find(RegistryStore& store, std::string_view full_name) {
  const std::string_view root = full_name.substr(0, full_name.find('\\'));
  if (!store.IsRoot(root)) return {};
  return store.Open(store.Root(root), full_name.substr(root.size()));
}

}  // namespace

void SaveRegistryText(const RegistryStore& store, const std::filesystem::path& file) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  const auto sink = [&out](std::string_view bytes) {
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  };
  ScriptWriter writer(ScriptForm::kVersion5, sink);
  writer.Start();
  for (const RegistryKey* root : store.RealRoots()) {
    std::string name = root->name();
    if (name != "HKEY_CURRENT_CONFIG" || root->key_count() + root->value_count() > 0) {
      WriteTree(*root, name, writer);
    }
  }
  writer.Finish();
  out.close();
  if (!out) throw HostedPcError(file.string() + ": can't be written");
}

std::string ExportRegistryText(RegistryStore& store, std::string_view full_name, ScriptForm form) {
  std::string script;
  const auto sink = [&script](std::string_view bytes) { script += bytes; };
  if (!full_name.empty()) {
    const RegistryView view = Find(store, full_name);
    if (!view.exists()) return {};
    ScriptWriter writer(form, sink);
    writer.Start();
    std::string name(full_name);
    while (name.ends_with('\\')) name.pop_back();
    WriteView(store, view, name, writer);
    writer.Finish();
    return script;
  }
  ScriptWriter writer(form, sink);
  writer.Start();
  for (const std::string_view root : {"HKEY_LOCAL_MACHINE", "HKEY_USERS"}) {
    std::string name(root);
    WriteView(store, store.Root(root), name, writer);
  }
  writer.Finish();
  return script;
}

std::size_t CountForExport(RegistryStore& store, std::string_view full_name) {
  if (full_name.empty()) {
    return CountTree(store, store.Root("HKEY_LOCAL_MACHINE")) +
           CountTree(store, store.Root("HKEY_USERS"));
  }
  const RegistryView view = Find(store, full_name);
  return view.exists() ? CountTree(store, view) : 0;
}

}  // namespace tidemark::hosted
