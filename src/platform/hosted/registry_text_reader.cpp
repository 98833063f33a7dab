#include <cerrno>
#include <fstream>
#include <system_error>

#include "platform/code_page.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_names.h"
#include "platform/hosted/registry_script_cursor.h"
#include "platform/hosted/registry_script_keys.h"
#include "platform/hosted/registry_script_value.h"
#include "platform/hosted/registry_text.h"

namespace tidemark::hosted {
namespace {

constexpr std::string_view kVersion5 = "Windows Registry Editor Version 5.00";
constexpr std::string_view kRegedit4 = "REGEDIT4";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string_view WithoutBlanksBehind(std::string_view text) {
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

// Reads a script that has been brought to UTF-8 text.
class ScriptReader {
 public:
  ScriptReader(std::string_view text, ScriptManner manner, RegistryStore& store)
      : cursor_(text), manner_(manner), store_(store), finder_(store), values_(cursor_, manner) {}
  ScriptReader(const ScriptReader&) = delete;
  ScriptReader& operator=(const ScriptReader&) = delete;

  // Throws ScriptFault in the strict manner, with line() at the line that is at fault.
  void Read() {
    ReadHeader();
    while (!cursor_.AtEnd()) {
      line_start_ = cursor_.position();
      try {
        ReadLine();
      } catch (const ScriptFault&) {
        if (manner_ == ScriptManner::kStrict) throw;
        cursor_.MoveTo(line_start_);
        cursor_.SkipLine();
      }
    }
  }

  // The number of the line that was read last.
  std::size_t line() const {
    std::size_t line = 1;
    for (const char character : cursor_.text().substr(0, line_start_)) {
      line += character == '\n' ? 1 : 0;
    }
    return line;
  }

 private:
  void ReadHeader() {
    const std::string_view header = WithoutBlanksBehind(cursor_.RestOfLine());
    const bool eight_bit = header == kRegedit4;
    if (!eight_bit && header != kVersion5)
      throw ScriptFault{"no registry script: unknown first line"};
    values_.set_eight_bit(eight_bit);
    cursor_.SkipLine();
  }

  void ReadLine() {
    cursor_.SkipBlanks();
    switch (cursor_.Peek()) {
      case '[':
        return ReadKeyLine();
      case '@':
      case '"':
        return Apply(values_.Read());
      case ';':
      case '\r':
      case '\n':
        return cursor_.SkipLine();
      case '\0':
        if (cursor_.AtEnd()) return;
        [[fallthrough]];
      default:
        throw ScriptFault{"neither a key nor a value"};
    }
  }

  void ReadKeyLine() {
    key_ = {};
    const std::string_view line = cursor_.RestOfLine();
    const std::size_t end = line.rfind(']');
    if (end == std::string_view::npos) throw ScriptFault{"a key without its closing bracket"};
    if (!WithoutBlanksBehind(line.substr(end + 1)).empty() && manner_ == ScriptManner::kStrict) {
      throw ScriptFault{"something stands behind the key"};
    }
    std::string_view path = line.substr(1, end - 1);
    const bool removes = path.starts_with('-');
    if (removes) path.remove_prefix(1);
    CheckKey(path);
    cursor_.Advance(line.size());
    cursor_.SkipLine();
    if (removes) {
      RemoveKey(path);
      return;
    }
    key_ = finder_.Make(path);
    if (!key_.exists()) throw ScriptFault{"the key can't be made"};
  }

  void CheckKey(std::string_view path) const {
    if (!store_.IsRoot(path.substr(0, path.find('\\')))) throw ScriptFault{"unknown root of a key"};
    if (path.find('\0') != std::string_view::npos) throw ScriptFault{"a NUL in the name of a key"};
    if (path.size() <= kLongestKeyName) return;
    for (std::string_view part = NextPart(path); !part.empty(); part = NextPart(path)) {
      if (part.size() > kLongestKeyName && Utf16Length(part) > kLongestKeyName) {
        throw ScriptFault{"the name of a key is too long"};
      }
    }
  }

  void RemoveKey(std::string_view path) {
    const std::string_view root = path.substr(0, path.find('\\'));
    const RegistryView view = store_.Open(store_.Root(root), path.substr(root.size()));
    finder_.Forget();
    RegistryKey* key = view.target();
    if (key == nullptr || store_.IsFixed(*key)) return;
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
      store_.SetValue(key, value.name, value.type, value.data);
    }
  }

  ScriptCursor cursor_;
  ScriptManner manner_;
  RegistryStore& store_;
  ScriptKeyFinder finder_;
  ScriptValueReader values_;
  std::size_t line_start_ = 0;
  RegistryView key_;
};

// Brings the script to UTF-8. In the strict manner it throws ScriptFault on what is no known
// encoding.
std::string Decode(std::string_view bytes, ScriptManner manner) {
  if (bytes.starts_with(kUtf16Mark)) {
    if (bytes.size() % 2 != 0 && manner == ScriptManner::kStrict) {
      throw ScriptFault{"16-bit text with half a character at its end"};
    }
    std::string text;
    text.reserve(bytes.size() / 2);
    AppendFromUtf16(bytes.substr(kUtf16Mark.size()), text);
    return text;
  }
  if (bytes.starts_with(kUtf16BigMark))
    throw ScriptFault{"unknown encoding: 16-bit text, big end first"};
  if (bytes.starts_with(kUtf8Mark)) return MendText(bytes.substr(kUtf8Mark.size()));
  return IsAscii(bytes) ? std::string(bytes) : FromSystemCodePage(bytes);
}

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
  try {
    text = Decode(bytes, ScriptManner::kStrict);
  } catch (const ScriptFault& fault) {
    std::size_t line = 1;
    for (const char byte : bytes) line += byte == '\n' ? 1 : 0;
    fail(bytes.size() % 2 != 0 ? line : 1, fault.what);
  }
  std::string().swap(bytes);
  ScriptReader reader(text, ScriptManner::kStrict, store);
  try {
    reader.Read();
  } catch (const ScriptFault& fault) {
    fail(reader.line(), fault.what);
  }
}

void ImportRegistryText(std::string_view bytes, RegistryStore& store) {
  try {
    const std::string text = Decode(bytes, ScriptManner::kLenient);
    ScriptReader(text, ScriptManner::kLenient, store).Read();
  } catch (const ScriptFault&) {
    // No script at all: the editor does nothing.
  }
}

}  // namespace tidemark::hosted
