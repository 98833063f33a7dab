#include <cerrno>
#include <fstream>
#include <system_error>

#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_limits.h"
#include "platform/hosted/registry_script_keys.h"
#include "platform/hosted/registry_text.h"
#include "platform/registry_script_reader.h"

namespace tidemark::hosted {
namespace {

// Brings what a script says into the registry.
class ScriptImport {
 public:
  explicit ScriptImport(RegistryStore& store) : store_(store), finder_(store) {}

  // Throws ScriptFault when that can't be done.
  void Apply(ScriptReader::Line line, const ScriptReader& script) {
    switch (line) {
      case ScriptReader::Line::kKey:
      case ScriptReader::Line::kRemovedKey:
        key_ = {};
        CheckRoot(script.key());
        if (line == ScriptReader::Line::kRemovedKey) return RemoveKey(script.key());
        key_ = finder_.Make(script.key());
        if (!key_.exists()) throw ScriptFault{"the key can't be made"};
        return;
      case ScriptReader::Line::kValue:
        return Apply(script.value());
      case ScriptReader::Line::kComment:
      case ScriptReader::Line::kEnd:
        return;
    }
  }

 private:
  void CheckRoot(std::string_view path) const {
    if (!store_.IsRoot(path.substr(0, path.find('\\')))) throw ScriptFault{"unknown root of a key"};
  }

  void RemoveKey(std::string_view path) {
    const std::string_view root = path.substr(0, path.find('\\'));
    const RegistryView view = store_.Open(store_.Root(root), path.substr(root.size()));
    finder_.Forget();
    RegistryKey* key = view.target();
    if (key == nullptr || store_.IsFixed(*key) || !CanLose(*key)) return;
    constexpr REGSAM kDelete = 0x10000;
    if ((store_.Denied(*key) & (kDelete | KEY_SET_VALUE)) == 0) store_.DeleteKey(*key);
  }

  void Apply(const ScriptValue& value) {
    if (!key_.exists()) throw ScriptFault{"a value without a key"};
    RegistryKey& key = *key_.target();
    if ((store_.Denied(key) & KEY_SET_VALUE) != 0) throw ScriptFault{"the key is denied"};
    if (value.removes) {
      store_.DeleteValue(key, value.name);
    } else {
      const bool set = store_.SetValue(key, value.name, value.type, value.data, value.odd_byte);
      if (!set) throw ScriptFault{"the key can't take the value"};
    }
  }

  RegistryStore& store_;
  ScriptKeyFinder finder_;
  RegistryView key_;
};

std::string ReadFile(const std::filesystem::path& file) {
  std::error_code error;
  const auto size = std::filesystem::file_size(file, error);
  std::ifstream in(file, std::ios::binary);
  std::string bytes;
  if (!error && in) {
    bytes.resize(size);
    in.read(bytes.data(), static_cast<std::streamsize>(size));
  }
  if (error || !in) {
    throw HostedPcError(
        file.string() + ": can't be read: " +
        (error ? error : std::error_code(errno, std::generic_category())).message());
  }
  return bytes;
}

}  // namespace

void LoadRegistryText(const std::filesystem::path& file, RegistryStore& store) {
  std::string bytes = ReadFile(file);
  std::string text;
  const auto fail = [&file](std::size_t line, const char* what) {
    throw HostedPcError(file.string() + ":" + std::to_string(line) + ": " + what);
  };
  std::optional<ScriptReader> script;
  try {
    text = DecodeScript(bytes, ScriptManner::kStrict);
    std::string().swap(bytes);
    script.emplace(text, ScriptManner::kStrict);
  } catch (const ScriptFault& fault) {
    std::size_t line = 1;
    for (const char byte : bytes) line += byte == '\n' ? 1 : 0;
    fail(bytes.size() % 2 != 0 ? line : 1, fault.what);
  }
  ScriptImport import(store);
  try {
    for (auto line = script->Next(); line != ScriptReader::Line::kEnd; line = script->Next()) {
      import.Apply(line, *script);
    }
  } catch (const ScriptFault& fault) {
    fail(script->line(), fault.what);
  }
}

void ImportRegistryText(std::string_view bytes, RegistryStore& store) {
  std::string text;
  std::optional<ScriptReader> script;
  try {
    text = DecodeScript(bytes, ScriptManner::kLenient);
    script.emplace(text, ScriptManner::kLenient);
  } catch (const ScriptFault&) {
    return;  // no script at all: the editor does nothing
  }
  ScriptImport import(store);
  for (auto line = script->Next(); line != ScriptReader::Line::kEnd; line = script->Next()) {
    try {
      import.Apply(line, *script);
    } catch (const ScriptFault&) {
      // Passed over.
    }
  }
}

}  // namespace tidemark::hosted
