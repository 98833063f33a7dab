#include <cstdio>
#include <fstream>

#include "platform/code_page.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_names.h"
#include "platform/hosted/registry_text.h"

namespace tidemark::hosted {
namespace {

constexpr std::size_t kFlushAt = 1U << 16U;
// A line of bytes is broken once it is this long; its "\" then stands within column 80.
constexpr std::size_t kLongestLine = 77;

// Collects the script as UTF-8 and hands it on, piece by piece, in the form's encoding.
template <class Sink>
class ScriptWriter {
 public:
  ScriptWriter(RegistryTextForm form, Sink& sink) : form_(form), sink_(sink) {
    if (form_ == RegistryTextForm::kVersion5) {
      sink_(std::string_view("\xFF\xFE"));
      text_ = "Windows Registry Editor Version 5.00\r\n";
    } else {
      text_ = "REGEDIT4\r\n";
    }
  }

  void Key(std::string_view full_name) {
    text_.append("\r\n[").append(full_name).append("]\r\n");
    if (text_.size() >= kFlushAt) Flush();
  }

  void Value(const RegistryValue& value) {
    const std::size_t start = text_.size();
    if (value.name().empty()) {
      text_ += '@';
    } else {
      Quote(value.name());
    }
    text_ += '=';
    const std::string_view data = value.data();
    if (value.type() == REG_SZ && IsPlainText(data)) {
      Quote(data.substr(0, data.size() - 1));
    } else if (value.type() == REG_DWORD && data.size() == 4) {
      Number(data);
    } else if (value.type() == REG_SZ || value.type() == REG_EXPAND_SZ ||
               value.type() == REG_MULTI_SZ) {
      Bytes(start, value.type(), EncodedText(data));
    } else {
      Bytes(start, value.type(), data);
    }
    text_ += "\r\n";
    if (text_.size() >= kFlushAt) Flush();
  }

  void Finish() {
    text_ += "\r\n";
    Flush();
  }

 private:
  // A text that the quoted form gives back exactly: it has its end, and no other.
  static bool IsPlainText(std::string_view data) {
    return !data.empty() && data.find('\0') == data.size() - 1;
  }

  void Quote(std::string_view text) {
    text_ += '"';
    for (const char character : text) {
      if (character == '"' || character == '\\') text_ += '\\';
      text_ += character;
    }
    text_ += '"';
  }

  void Hex(unsigned value) {
    constexpr char kDigits[] = "0123456789abcdef";
    text_ += kDigits[value >> 4U & 0xFU];
    text_ += kDigits[value & 0xFU];
  }

  void Number(std::string_view data) {
    text_ += "dword:";
    for (std::size_t i = 4; i > 0; --i) Hex(static_cast<unsigned char>(data[i - 1]));
  }

  std::string EncodedText(std::string_view text) const {
    if (form_ == RegistryTextForm::kRegedit4) return ToSystemCodePage(text);
    std::string bytes;
    AppendAsUtf16(text, bytes);
    return bytes;
  }

  void Bytes(std::size_t line_start, DWORD type, std::string_view bytes) {
    text_ += "hex";
    if (type != REG_BINARY) {
      char digits[9];
      std::snprintf(digits, sizeof digits, "%x", type);
      text_.append("(").append(digits).append(")");
    }
    text_ += ':';
    std::size_t column = Utf16Length(std::string_view(text_).substr(line_start));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      Hex(static_cast<unsigned char>(bytes[i]));
      if (i + 1 == bytes.size()) break;
      text_ += ',';
      column += 3;
      if (column >= kLongestLine) {
        text_ += "\\\r\n  ";
        column = 2;
      }
    }
  }

  void Flush() {
    if (form_ == RegistryTextForm::kRegedit4) {
      sink_(ToSystemCodePage(text_));
    } else {
      std::string bytes;
      bytes.reserve(2 * text_.size());
      AppendAsUtf16(text_, bytes);
      sink_(bytes);
    }
    text_.clear();
  }

  RegistryTextForm form_;
  Sink& sink_;
  std::string text_;
};

// The default value comes first.
template <class Writer>
void WriteValues(const RegistryKey& key, Writer& writer) {
  const RegistryValue* first = key.FindValue("");
  if (first != nullptr) writer.Value(*first);
  for (std::size_t i = 0; i < key.value_count(); ++i) {
    if (!key.value(i).name().empty()) writer.Value(key.value(i));
  }
}

template <class Writer>
void WriteTree(const RegistryKey& key, std::string& full_name, Writer& writer) {
  writer.Key(full_name);
  WriteValues(key, writer);
  const std::size_t size = full_name.size();
  for (std::size_t i = 0; i < key.key_count(); ++i) {
    full_name.append("\\").append(key.key(i).name());
    WriteTree(key.key(i), full_name, writer);
    full_name.resize(size);
  }
}

template <class Writer>
void WriteView(RegistryStore& store, const RegistryView& view, std::string& full_name,
               Writer& writer) {
  if (!view.both()) {
    if (view.exists()) WriteTree(*view.target(), full_name, writer);
    return;
  }
  writer.Key(full_name);
  const RegistryValue* first = store.FindValue(view, "");
  if (first != nullptr) writer.Value(*first);
  for (std::size_t i = 0; i < store.ValueCount(view); ++i) {
    const RegistryValue& value = store.ValueAt(view, i);
    if (!value.name().empty()) writer.Value(value);
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
  ScriptWriter writer(RegistryTextForm::kVersion5, sink);
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

std::string ExportRegistryText(RegistryStore& store, std::string_view full_name,
                               RegistryTextForm form) {
  std::string script;
  const auto sink = [&script](std::string_view bytes) { script += bytes; };
  if (!full_name.empty()) {
    const RegistryView view = Find(store, full_name);
    if (!view.exists()) return {};
    ScriptWriter writer(form, sink);
    std::string name(full_name);
    while (name.ends_with('\\')) name.pop_back();
    WriteView(store, view, name, writer);
    writer.Finish();
    return script;
  }
  ScriptWriter writer(form, sink);
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
