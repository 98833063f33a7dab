#include <array>
#include <cerrno>
#include <charconv>
#include <fstream>
#include <optional>
#include <system_error>
#include <vector>

#include "platform/code_page.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_names.h"
#include "platform/hosted/registry_text.h"

namespace tidemark::hosted {
namespace {

constexpr std::string_view kVersion5 = "Windows Registry Editor Version 5.00";
constexpr std::string_view kRegedit4 = "REGEDIT4";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// In 16-bit units.
constexpr std::size_t kLongestKeyName = 256;
constexpr std::size_t kLongestValueName = 16383;

enum class Manner { kStrict, kLenient };

// Why a script can't be read on.
struct Fault {
  const char* what;
};

std::string_view WithoutBlanksBehind(std::string_view text) {
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

// -1 for what is no hexadecimal digit.
constexpr auto kHexDigits = [] {
  std::array<signed char, 256> digits{};
  for (auto& digit : digits) digit = -1;
  for (signed char i = 0; i < 16; ++i) {
    digits[static_cast<unsigned char>("0123456789abcdef"[i])] = i;
    digits[static_cast<unsigned char>("0123456789ABCDEF"[i])] = i;
  }
  return digits;
}();

int HexDigit(char character) { return kHexDigits[static_cast<unsigned char>(character)]; }

// Finds the key of a key line. Lines come in the order of a walk, so what a line shares with the
// line before is not looked up again.
class KeyFinder {
 public:
  explicit KeyFinder(RegistryStore& store) : store_(store) {}

  // A view that does not exist when the root is unknown or the key is denied.
  RegistryView Make(std::string_view path) {
    Keep(path);
    if (steps_.empty() && !StartAt(path)) return {};
    std::string_view rest = path.substr(steps_.back().end);
    RegistryView view = steps_.back().view;
    for (std::string_view part = NextPart(rest); !part.empty(); part = NextPart(rest)) {
      bool made = false;
      view = store_.Create(view, part, &made);
      if (!view.exists()) break;
      steps_.push_back({path.size() - rest.size(), view});
    }
    last_.assign(path, 0, steps_.back().end);
    return view;
  }

  // After keys were deleted.
  void Forget() { steps_.clear(); }

 private:
  struct Step {
    std::size_t end;  // of the part in the path
    RegistryView view;
  };

  // Keeps the steps that are those of the path too.
  void Keep(std::string_view path) {
    const std::size_t common = std::min(path.size(), last_.size());
    std::size_t shared = 0;
    while (shared < common && path[shared] == last_[shared]) ++shared;
    while (!steps_.empty()) {
      const std::size_t end = steps_.back().end;
      if (end <= shared && (end == path.size() || path[end] == '\\')) break;
      steps_.pop_back();
    }
  }

  bool StartAt(std::string_view path) {
    const std::string_view root = path.substr(0, path.find('\\'));
    if (!store_.IsRoot(root)) return false;
    RegistryView view = store_.Root(root);
    if (!view.exists()) {  // HKEY_CLASSES_ROOT of a PC that has no classes yet
      bool made = false;
      view.under = store_.Create(store_.Root(HKEY_LOCAL_MACHINE), "Software\\Classes", &made).top;
    }
    steps_.push_back({root.size(), view});
    return view.exists();
  }

  RegistryStore& store_;
  std::string last_;
  std::vector<Step> steps_;
};

// Reads a script that has been brought to UTF-8 text.
class ScriptReader {
 public:
  ScriptReader(std::string_view text, Manner manner, RegistryStore& store)
      : text_(text), manner_(manner), store_(store), finder_(store) {}

  // Throws Fault in the strict manner, with line() at the line that is at fault.
  void Read() {
    ReadHeader();
    while (position_ < text_.size()) {
      line_start_ = position_;
      try {
        ReadLine();
      } catch (const Fault&) {
        if (manner_ == Manner::kStrict) throw;
        position_ = line_start_;
        SkipLine();
      }
    }
  }

  // The number of the line that was read last.
  std::size_t line() const {
    std::size_t line = 1;
    for (const char character : text_.substr(0, line_start_)) line += character == '\n' ? 1 : 0;
    return line;
  }

 private:
  void ReadHeader() {
    const std::string_view header = WithoutBlanksBehind(RestOfLine());
    eight_bit_ = header == kRegedit4;
    if (!eight_bit_ && header != kVersion5) throw Fault{"no registry script: unknown first line"};
    SkipLine();
  }

  void ReadLine() {
    SkipBlanks();
    switch (Peek()) {
      case '[':
        return ReadKeyLine();
      case '@':
        ++position_;
        name_.clear();
        return ReadValue();
      case '"':
        ReadQuoted(name_);
        return ReadValue();
      case ';':
      case '\r':
      case '\n':
        return SkipLine();
      case '\0':
        if (position_ == text_.size()) return;
        [[fallthrough]];
      default:
        throw Fault{"neither a key nor a value"};
    }
  }

  void ReadKeyLine() {
    key_ = {};
    const std::string_view line = RestOfLine();
    const std::size_t end = line.rfind(']');
    if (end == std::string_view::npos) throw Fault{"a key without its closing bracket"};
    if (!WithoutBlanksBehind(line.substr(end + 1)).empty() && manner_ == Manner::kStrict) {
      throw Fault{"something stands behind the key"};
    }
    std::string_view path = line.substr(1, end - 1);
    const bool removes = path.starts_with('-');
    if (removes) path.remove_prefix(1);
    CheckKey(path);
    position_ += line.size();
    SkipLine();
    if (removes) {
      RemoveKey(path);
      return;
    }
    key_ = finder_.Make(path);
    if (!key_.exists()) throw Fault{"the key can't be made"};
  }

  void CheckKey(std::string_view path) const {
    if (!store_.IsRoot(path.substr(0, path.find('\\')))) throw Fault{"unknown root of a key"};
    if (path.find('\0') != std::string_view::npos) throw Fault{"a NUL in the name of a key"};
    if (path.size() <= kLongestKeyName) return;
    for (std::string_view part = NextPart(path); !part.empty(); part = NextPart(path)) {
      if (part.size() > kLongestKeyName && Utf16Length(part) > kLongestKeyName) {
        throw Fault{"the name of a key is too long"};
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

  // What follows the name.
  void ReadValue() {
    if (name_.size() > kLongestValueName && Utf16Length(name_) > kLongestValueName) {
      throw Fault{"the name of a value is too long"};
    }
    SkipBlanks();
    if (Peek() != '=') throw Fault{"a value without \"=\""};
    ++position_;
    SkipBlanks();
    if (Peek() == '"') {
      ReadQuoted(data_);
      data_ += '\0';
      EndLine();
      return SetValue(REG_SZ);
    }
    if (Takes("-")) {
      EndLine();
      return RemoveValue();
    }
    if (Takes("dword:")) return ReadNumber();
    if (Takes("hex:")) return ReadBytes(REG_BINARY);
    if (Takes("hex(")) {
      DWORD type = 0;
      const char* const begin = text_.data() + position_;
      const auto [end, error] = std::from_chars(begin, text_.data() + text_.size(), type, 16);
      position_ += static_cast<std::size_t>(end - begin);
      if (error != std::errc() || !Takes("):")) throw Fault{"unknown value type"};
      return ReadBytes(type);
    }
    throw Fault{"unknown value type"};
  }

  void ReadQuoted(std::string& into) {
    into.clear();
    ++position_;
    for (;;) {
      const std::size_t start = position_;
      while (position_ < text_.size() && !StopsPlainText(text_[position_])) ++position_;
      into.append(text_, start, position_ - start);
      if (position_ == text_.size()) throw Fault{"a text without its closing quote"};
      const char stop = text_[position_++];
      if (stop == '"') return;
      if (stop == '\0') throw Fault{"a NUL in a text"};
      ReadEscape(into);
    }
  }

  static bool StopsPlainText(char character) {
    return character == '"' || character == '\\' || character == '\0';
  }

  void ReadEscape(std::string& into) {
    if (position_ == text_.size()) throw Fault{"a text without its closing quote"};
    const char escaped = text_[position_++];
    switch (escaped) {
      case '\\':
      case '"':
        into += escaped;
        break;
      case 'n':
        into += '\n';
        break;
      case 'r':
        into += '\r';
        break;
      case '0':
        into += '\0';
        break;
      default:
        if (manner_ == Manner::kStrict) throw Fault{"unknown escape in a text"};
        into += escaped;
    }
  }

  void ReadNumber() {
    std::uint32_t number = 0;
    int digits = 0;
    for (; HexDigit(Peek()) >= 0; ++position_, ++digits) {
      number = number << 4U | static_cast<std::uint32_t>(HexDigit(Peek()));
    }
    if (digits == 0 || digits > 8) throw Fault{"wrong number"};
    EndLine();
    data_.clear();
    for (unsigned i = 0; i < 4; ++i) data_ += static_cast<char>(number >> 8 * i & 0xFFU);
    SetValue(REG_DWORD);
  }

  void ReadBytes(DWORD type) {
    data_.clear();
    bool comma = false;
    for (;;) {
      SkipBlanks();
      if (Peek() == '\\') {
        ++position_;
        ContinueLine();
        continue;
      }
      const int digit = HexDigit(Peek());
      if (digit < 0) break;
      if (!data_.empty() && !comma) throw Fault{"wrong bytes"};
      ++position_;
      int byte = digit;
      if (HexDigit(Peek()) >= 0) {
        byte = byte * 16 + HexDigit(Peek());
        ++position_;
      }
      data_ += static_cast<char>(byte);
      SkipBlanks();
      comma = Peek() == ',';
      if (comma) ++position_;
    }
    if (comma && manner_ == Manner::kStrict) throw Fault{"bytes end in a comma"};
    EndLine();
    if (type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ) DecodeData();
    SetValue(type);
  }

  // Behind the "\" of a line of bytes.
  void ContinueLine() {
    SkipBlanks();
    if (Peek() == '\r') ++position_;
    if (Peek() != '\n') throw Fault{"bytes are cut"};
    ++position_;
    SkipBlanks();
    if (position_ == text_.size()) throw Fault{"bytes are cut"};
  }

  void DecodeData() {
    if (eight_bit_) {
      data_ = FromSystemCodePage(data_);
    } else {
      std::string text;
      AppendFromUtf16(data_, text);
      data_.swap(text);
    }
  }

  RegistryKey& Target() {
    if (!key_.exists()) throw Fault{"a value without a key"};
    RegistryKey& key = *key_.target();
    if ((store_.Denied(key) & KEY_SET_VALUE) != 0) throw Fault{"the key is denied"};
    return key;
  }

  void SetValue(DWORD type) { store_.SetValue(Target(), name_, type, data_); }

  void RemoveValue() {
    RegistryKey& key = Target();
    store_.DeleteValue(key, name_);
  }

  // Only blanks and a comment may follow.
  void EndLine() {
    SkipBlanks();
    const char next = Peek();
    if (position_ < text_.size() && next != '\r' && next != '\n' && next != ';') {
      throw Fault{"something stands behind the value"};
    }
    SkipLine();
  }

  char Peek() const { return position_ < text_.size() ? text_[position_] : '\0'; }

  bool Takes(std::string_view word) {
    if (!text_.substr(position_).starts_with(word)) return false;
    position_ += word.size();
    return true;
  }

  void SkipBlanks() {
    while (Peek() == ' ' || Peek() == '\t') ++position_;
  }

  std::string_view RestOfLine() const {
    std::string_view line = text_.substr(position_);
    line = line.substr(0, line.find('\n'));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
  }

  void SkipLine() {
    const std::size_t end = text_.find('\n', position_);
    position_ = end == std::string_view::npos ? text_.size() : end + 1;
  }

  std::string_view text_;
  Manner manner_;
  RegistryStore& store_;
  KeyFinder finder_;
  std::size_t position_ = 0;
  std::size_t line_start_ = 0;
  bool eight_bit_ = false;
  RegistryView key_;
  std::string name_;
  std::string data_;
};

// Brings the script to UTF-8. In the strict manner it throws Fault on what is no known encoding.
std::string Decode(std::string_view bytes, Manner manner) {
  if (bytes.starts_with(kUtf16Mark)) {
    if (bytes.size() % 2 != 0 && manner == Manner::kStrict) {
      throw Fault{"16-bit text with half a character at its end"};
    }
    std::string text;
    text.reserve(bytes.size() / 2);
    AppendFromUtf16(bytes.substr(kUtf16Mark.size()), text);
    return text;
  }
  if (bytes.starts_with(kUtf16BigMark)) throw Fault{"unknown encoding: 16-bit text, big end first"};
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
    text = Decode(bytes, Manner::kStrict);
  } catch (const Fault& fault) {
    std::size_t line = 1;
    for (const char byte : bytes) line += byte == '\n' ? 1 : 0;
    fail(bytes.size() % 2 != 0 ? line : 1, fault.what);
  }
  std::string().swap(bytes);
  ScriptReader reader(text, Manner::kStrict, store);
  try {
    reader.Read();
  } catch (const Fault& fault) {
    fail(reader.line(), fault.what);
  }
}

void ImportRegistryText(std::string_view bytes, RegistryStore& store) {
  try {
    const std::string text = Decode(bytes, Manner::kLenient);
    ScriptReader(text, Manner::kLenient, store).Read();
  } catch (const Fault&) {
    // No script at all: the editor does nothing.
  }
}

}  // namespace tidemark::hosted
