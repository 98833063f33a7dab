// An object view of one registry location: set the root, the section and the value's name, then
// read or write its value. It does what mdlRegistry does in free functions, but knows value types,
// reports failures by an exception, and can write file associations. A facility: the program's own
// flows use mdlRegistry.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "platform/winapi.h"

namespace tidemark {

// A value's data: nothing, a text, a 16-bit or a 32-bit integer, bytes. Texts may hold NULs (a list
// of texts does).
using RegistryData = std::variant<std::monostate, std::string, std::int16_t, std::int32_t,
                                  std::vector<std::uint8_t>>;

// What an operation of cRegistry that failed raises; what() is the description.
class RegistryError : public std::runtime_error {
 public:
  RegistryError(std::string source, const std::string& description)
      : std::runtime_error(description), source_(std::move(source)) {}
  static constexpr int kNumber = 26001;
  int Number() const { return kNumber; }
  const std::string& Source() const { return source_; }

 private:
  std::string source_;
};

class cRegistry {
 public:
  cRegistry() = default;
  cRegistry(HKEY root, std::string section, std::string name, DWORD type,
            RegistryData default_value);

  // Less than 3 characters clear it; a text without "\\" in front gets it. Empty is this machine.
  const std::string& Machine() const { return machine_; }
  void SetMachine(std::string machine);

  HKEY ClassKey() const { return class_key_; }
  void SetClassKey(HKEY root) { class_key_ = root; }
  const std::string& SectionKey() const { return section_key_; }
  void SetSectionKey(std::string section) { section_key_ = std::move(section); }
  const std::string& ValueKey() const { return value_key_; }
  void SetValueKey(std::string name) { value_key_ = std::move(name); }
  // Of the value to be written; every read of Value sets it to the type that was found.
  DWORD ValueType() const { return value_type_; }
  void SetValueType(DWORD type) { value_type_ = type; }
  // What Value yields when nothing can be read.
  const RegistryData& Default() const { return default_; }
  void SetDefault(RegistryData value) { default_ = std::move(value); }

  bool KeyExists() const;
  // These raise RegistryError on failure and are true otherwise.
  bool CreateKey();
  bool DeleteKey();  // the key must have no sub-keys
  bool DeleteValue();

  // Texts: REG_SZ and REG_MULTI_SZ as they are stored less their last byte, REG_EXPAND_SZ expanded.
  // REG_DWORD of either byte order: a 32-bit integer. All others: the bytes and one zero byte more,
  // on purpose. Default when nothing can be read; never raises.
  RegistryData Value();
  // Makes the key if it is missing. By ValueType: REG_SZ or REG_EXPAND_SZ stores a text, expandable
  // when it holds two "%" signs, and an integer as decimal text; REG_BINARY takes bytes alone;
  // REG_DWORD of either order takes an integer and stores REG_DWORD. Other types, and data of
  // another kind, raise RegistryError.
  void SetValue(const RegistryData& value);

  // The names of the section's values, or of its sub-keys; what can't be read is not among them.
  // The answer is always true.
  bool EnumerateValues(std::vector<std::string>& names) const;
  bool EnumerateSections(std::vector<std::string>& names) const;

  // Makes a file type of `extension` (without its dot) that a program opens, and if wanted prints,
  // creates and installs. Empty captions get the usual ones. An icon index of -1 writes no icon.
  struct Association {
    std::string program_path;
    std::string class_name;
    std::string class_description;
    std::string extension;
    std::string open_caption = {};
    bool print = false;
    std::string print_caption = {};
    bool create = false;
    std::string create_caption = {};
    bool install = false;
    std::string install_caption = {};
    int icon_index = -1;
  };
  void CreateEXEAssociation(const Association& association);
  // Name, text, command, and so on: raises RegistryError when the number does not divide by 3, or
  // the class was not made before.
  void CreateAdditionalEXEAssociations(const std::string& class_name,
                                       const std::vector<std::string>& names_texts_commands);

  // One read or write with a new object.
  static RegistryData ValueEx(HKEY root, const std::string& section, const std::string& name,
                              DWORD type, RegistryData default_value);
  static void SetValueEx(HKEY root, const std::string& section, const std::string& name, DWORD type,
                         RegistryData default_value, const RegistryData& value);

 private:
  bool ConnectsToMachine() const;
  [[noreturn]] void Raise(const std::string& description) const;
  std::string Place() const;  // root and section, as the descriptions name them
  // Writes the default value of the section below HKEY_CLASSES_ROOT and below the machine's
  // classes; the root is the machine's then.
  void SetClassValue(const std::string& section, const std::string& text);
  void SetVerb(const std::string& class_name, const std::string& verb, const std::string& caption,
               const std::string& command);

  std::string machine_;
  HKEY class_key_ = nullptr;
  std::string section_key_;
  std::string value_key_;
  DWORD value_type_ = 0;
  RegistryData default_;
};

}  // namespace tidemark
