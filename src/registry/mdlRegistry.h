// The thin layer through which the whole program reads and writes the system registry: free
// functions over the platform's 8-bit calls. None of them raises or shows a failure; it shows as a
// neutral value (empty text, 0, false). They differ on purpose in whether they close the key and in
// how data becomes text, so each says so.
//
// A key is a root handle and a sub-key path without leading backslash. Data comes as text, as the
// lists show it.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "platform/winapi.h"

namespace tidemark {

// The rights of every open with an explicit mask: reading and writing of values and sub-keys,
// notify, create link, read control.
constexpr REGSAM kKeyAccess = 0x2003F;

// Data of a value: nothing (missing, unreadable or of another type), text, or a number.
using RegData = std::variant<std::monostate, std::string, std::int32_t>;

// The text of RegData as a list shows it.
std::string RegDataText(const RegData& data);

// The text of a REG_SZ value up to its first NUL; the default for a missing value or key and for
// any other type.
std::string GetRegString(HKEY root, const std::string& sub_key, const std::string& name,
                         const std::string& default_text = {});

// Stores a REG_SZ without a terminating NUL counted, making the key and all missing levels.
void SaveRegString(HKEY root, const std::string& sub_key, const std::string& name,
                   const std::string& text);

// Opens with kKeyAccess; null when that fails. The caller's handle.
HKEY OpenRegKey(HKEY root, const std::string& sub_key);

enum class RegItems { kValues = 0, kSubKeys = 1 };
// 0 for any other kind.
DWORD CountRegItems(HKEY key, RegItems kind);

// 0 for both when the key can't be asked.
void GetRegKeyInfo(HKEY key, DWORD& sub_keys, DWORD& values);

// The name of the sub-key or value at the index (from 0), trimmed of blanks and followed by one
// NUL; empty past the end.
std::string EnumRegKey(HKEY key, DWORD index);
std::string EnumRegValueName(HKEY key, DWORD index);

// The value at the index: its name as EnumRegValueName gives it, its data and its type. Texts end
// at their first NUL, so of a multi-string the first text is delivered; a double word is signed
// decimal; binary data is capital two-digit bytes divided by blanks; any other type gives no data.
// On a failed read the data is empty and the type is still told. Past the end: empty, empty, 0.
void EnumRegValue(HKEY key, DWORD index, std::string& name, std::string& data, DWORD& type);

void DeleteRegValue(HKEY root, const std::string& sub_key, const std::string& name);

// Writes the text with the type, no terminating NUL counted; a type of 0 becomes REG_SZ, for the
// caller too. The platform's status; the key is not made. The key stays open.
LSTATUS SetRegValue(HKEY root, const std::string& sub_key, const std::string& name,
                    const std::string& text, DWORD& type);

// As GetRegString without a default, of an open key, which stays open.
std::string GetOpenKeyString(HKEY key, const std::string& name);

// Writes REG_SZ or REG_BINARY data as the bytes of the text, making the key if it is missing; any
// other type writes nothing and answers whether the key could be opened. The disposition is set
// when the key had to be made.
bool WriteRegValue(HKEY root, const std::string& sub_key, const std::string& name,
                   const std::string& data, DWORD type, DWORD& disposition);

// As EnumRegValue gives the data, but binary data lacks its last byte. The key stays open.
RegData GetRegData(HKEY root, const std::string& sub_key, const std::string& name);

// False when the key is not found (2) or is no key (1010); a key that denies access exists.
bool RegKeyExists(HKEY root, const std::string& sub_key);

}  // namespace tidemark
