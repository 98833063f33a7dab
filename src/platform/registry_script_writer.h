// Writes registry scripts, the text format of the registry editor, in its two forms.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/winapi.h"

namespace tidemark {

enum class ScriptForm {
  kVersion5,  // "Windows Registry Editor Version 5.00": 16-bit text with a byte order mark
  kRegedit4,  // "REGEDIT4": in the system's code page; texts that are written as bytes are 8-bit
};

// Collects the script and hands it on, piece by piece, in the form's encoding. Names and the data
// of texts are UTF-8 (exact_text.h).
class ScriptWriter {
 public:
  using Sink = std::function<void(std::string_view bytes)>;

  ScriptWriter(ScriptForm form, Sink sink) : form_(form), sink_(std::move(sink)) {}

  // The first line, behind the mark. Who goes on with a script leaves it out.
  void Start();
  void Key(std::string_view full_name);
  void Value(std::string_view name, DWORD type, std::string_view data,
             std::optional<char> odd_byte = {});
  // The same of data as they are stored: of texts the 16-bit bytes.
  void StoredValue(std::string_view name, DWORD type, std::string_view bytes);
  // The text holds no line break.
  void Comment(std::string_view text);
  // From here on a text with control characters, which not every editor reads between quotes, is
  // written as bytes.
  void QuoteOnlyPlainTexts() { only_plain_ = true; }
  // The line that ends the script.
  void Finish();
  // Hands on what was collected.
  void Flush();

 private:
  bool IsPlainText(std::string_view data) const;
  void Quote(std::string_view text);
  void Hex(unsigned value);
  void Number(std::string_view data);
  std::string EncodedText(std::string_view text, std::optional<char> odd_byte) const;
  void Bytes(std::size_t line_start, DWORD type, std::string_view bytes);
  void FlushWhenLong();

  ScriptForm form_;
  Sink sink_;
  std::string text_;
  bool only_plain_ = false;
};

}  // namespace tidemark
