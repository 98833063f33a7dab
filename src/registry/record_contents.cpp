#include "registry/record_contents.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>

#include "helpers/system_helpers.h"
#include "platform/exact_text.h"
#include "platform/file_system_object.h"
#include "platform/letter_case.h"
#include "platform/registry_rules.h"
#include "platform/registry_script_reader.h"
#include "platform/winapi.h"
#include "registry/complete_record.h"

namespace tidemark {
namespace {

std::string StoredBytes(const ScriptValue& value) {
  if (!IsTextType(value.type)) return value.data;
  std::string bytes;
  AppendAsUtf16(value.data, bytes);
  if (value.odd_byte) bytes += *value.odd_byte;
  return bytes;
}

constexpr std::string_view kHeader = "Windows Registry Editor Version 5.00\r\n";
constexpr std::string_view kLineEnd = "\r\n";

// Cuts the word before the next blank off.
std::string_view NextWord(std::string_view& text) {
  const std::string_view word = text.substr(0, text.find(' '));
  text.remove_prefix(std::min(text.size(), word.size() + 1));
  return word;
}

std::vector<RecordedKey> KeysOf(std::string_view piece) {
  const std::string script_text = std::string(kHeader).append(piece);
  ScriptReader script(script_text, ScriptManner::kLenient);
  script.TellComments();
  std::vector<RecordedKey> keys;
  std::string coded_name;
  for (auto line = script.Next(); line != ScriptReader::Line::kEnd; line = script.Next()) {
    if (line == ScriptReader::Line::kComment) {
      std::string_view rest = script.comment();
      if (NextWord(rest) == "key") coded_name = DecodeLineBreaks(rest);
    } else if (line == ScriptReader::Line::kKey) {
      const bool coded = script.key() == kUnspeakableKey;
      const auto key = KeyOfFullName(coded ? std::string_view(coded_name) : script.key());
      keys.push_back({key.value_or(RealKey()), {}});
    } else if (line == ScriptReader::Line::kValue && !keys.empty()) {
      const ScriptValue& value = script.value();
      keys.back().values.push_back({value.name, {value.type, StoredBytes(value)}});
    }
  }
  std::erase_if(keys, [](const RecordedKey& key) { return key.key.root == nullptr; });
  return keys;
}

// Goes from mark to mark, and reads between two of them only what its checksum vouches for: so
// what is damaged can't swallow what follows.
class Contents {
 public:
  explicit Contents(std::string_view text) : text_(text) { contents_.cut = true; }

  RecordContents Read() {
    while (position_ < text_.size()) {
      const std::size_t start = position_;
      const std::size_t end = std::min(text_.find(kLineEnd, start), text_.size());
      position_ = std::min(end + kLineEnd.size(), text_.size());
      const std::string_view line = text_.substr(start, end - start);
      if (line.starts_with("; ")) Take(line.substr(2), start);
    }
    return std::move(contents_);
  }

 private:
  void Take(std::string_view mark, std::size_t start) {
    const std::string_view word = NextWord(mark);
    const std::string number(NextWord(mark));
    if (word == "piece") {
      contents_.cut = true;
      if (!TakePiece(start, number, mark == "value")) {
        ++contents_.damaged;
        by_number_.erase(number);
        last_damaged_ = number;
      }
    } else if (word == "whole") {  // of a piece whose own mark is damaged
      if (!by_number_.contains(number) && number != last_damaged_) ++contents_.damaged;
    } else if (word == "lost") {
      std::size_t count = 0;
      std::from_chars(number.data(), number.data() + number.size(), count);
      contents_.lost += std::max(count, std::size_t{1});
    } else if (word == "end") {
      contents_.cut = false;
    } else if (word == "gone" || word == "stayed") {
      const auto known = by_number_.find(number);
      if (known == by_number_.end()) return;
      RecordPiece& piece = contents_.pieces[known->second];
      if (word == "gone") piece.gone = true;
      const auto key = KeyOfFullName(DecodeLineBreaks(mark));
      if (word == "stayed" && key) piece.stayed.insert(Identity(*key));
    }
  }

  bool TakePiece(std::size_t start, const std::string& number, bool is_value) {
    const std::string end_mark = "; whole " + number + " ";
    for (std::size_t end = text_.find(end_mark, start); end != std::string_view::npos;
         end = text_.find(end_mark, end + 1)) {
      const std::string_view piece = text_.substr(start, end - start);
      const std::string sum = ChecksumOf(piece);
      if (!text_.substr(end + end_mark.size()).starts_with(sum)) continue;
      by_number_[number] = contents_.pieces.size();
      contents_.pieces.push_back({KeysOf(piece), is_value, false, {}});
      position_ = end;
      return true;
    }
    return false;
  }

  static std::string ChecksumOf(std::string_view piece) {
    std::string bytes;
    AppendAsUtf16(piece, bytes);
    return Checksum::Of(bytes);
  }

  std::string_view text_;
  std::size_t position_ = 0;
  RecordContents contents_;
  std::string last_damaged_;
  std::map<std::string, std::size_t> by_number_;  // a record that was taken up again counts anew
};

// What a file holds; empty when it is not there, no value when it can't be read.
std::optional<std::string> Read(const std::string& path) {
  if (GetFileAttributesA(path.c_str()) == INVALID_FILE_ATTRIBUTES) return "";
  return FileSystemObject().ReadAll(path);
}

// Copies that the list does not tell of.
std::size_t UnlistedCopies(const std::string& folder, const std::vector<KeptFile>& files) {
  FileSystemObject::Folder found;
  if (FileSystemObject().GetFolder(folder, found)) return 0;
  std::set<std::string> listed;
  for (const KeptFile& file : files) listed.insert(UpperCase(file.copy));
  const auto is_unlisted = [&listed](const std::string& name) {
    return IsNameOfCopy(name) && !listed.contains(UpperCase(name));
  };
  const auto& names = found.Files();
  return static_cast<std::size_t>(std::count_if(names.begin(), names.end(), is_unlisted));
}

}  // namespace

RecordContents ReadRecordScript(std::string_view bytes) {
  constexpr std::string_view kMark = "\xFF\xFE";
  const bool marked = bytes.starts_with(kMark);
  std::string text;
  AppendFromUtf16(marked ? bytes.substr(kMark.size()) : bytes, text);
  return Contents(text).Read();
}

RecordContents ReadRecord(const std::string& folder) {
  const std::string script = folder + "\\registry.reg";
  const auto script_bytes = Read(script);
  const auto list_text = Read(KeptFilesPath(folder));
  // Of files alone there is no script.
  RecordContents contents;
  if (IsExistingFile(script)) contents = ReadRecordScript(script_bytes.value_or(""));
  KeptFilesList list = ReadKeptFiles(list_text.value_or(""));
  contents.files = std::move(list.files);
  if (!list_text) ++list.damaged;
  // A line that is not whole and the copy that it told of are one.
  list.damaged = std::max(list.damaged, UnlistedCopies(folder, contents.files));
  contents.damaged += list.damaged + (script_bytes ? 0 : 1);
  if (contents.pieces.empty() && contents.files.empty()) contents.cut = true;
  return contents;
}

RecordCounts CountsOf(const RecordContents& contents) {
  RecordCounts counts;
  std::set<std::string> keys;
  std::set<std::string> values;
  for (const RecordPiece& piece : contents.pieces) {
    for (const RecordedKey& key : piece.keys) {
      const std::string identity = Identity(key.key);
      if (piece.stayed.contains(identity)) continue;
      if (!piece.is_value) keys.insert(identity);
      for (const RecordedValue& value : key.values) {
        values.insert(identity + "\\\\" + UpperCase(value.name));
      }
    }
  }
  counts.keys = keys.size();
  counts.values = values.size();
  counts.files = contents.files.size();
  return counts;
}

std::string CountsText(const RecordCounts& counts) {
  std::string text;
  const auto add = [&text](std::size_t count, const char* what) {
    if (count == 0) return;
    if (!text.empty()) text += ", ";
    text.append(std::to_string(count)).append(" ").append(what);
    if (count != 1) text += 's';
  };
  add(counts.keys, "key");
  add(counts.values, "value");
  add(counts.files, "shortcut");
  return text;
}

void RemoveRecord(const std::string& folder) {
  FileSystemObject::Folder found;
  FileSystemObject files;
  if (files.GetFolder(folder, found) != FileSystemObject::kNone) return;
  for (const std::string& name : found.Files()) files.DeleteFile(found.PathOf(name), true);
  RemoveDirectoryA(folder.c_str());
}

}  // namespace tidemark
