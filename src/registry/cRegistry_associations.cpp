// The file associations of cRegistry.
#include "helpers/text_helpers.h"
#include "registry/cRegistry.h"

namespace tidemark {
namespace {

std::string Quoted(std::string path) {
  if (!path.starts_with('"')) path.insert(0, 1, '"');
  if (path.size() < 2 || !path.ends_with('"')) path += '"';
  return path;
}

std::string Or(const std::string& caption, const std::string& usual) {
  return caption.empty() ? usual : caption;
}

}  // namespace

void cRegistry::SetClassValue(const std::string& section, const std::string& text) {
  value_type_ = REG_SZ;
  value_key_.clear();
  class_key_ = HKEY_CLASSES_ROOT;
  section_key_ = section;
  SetValue(text);
  class_key_ = HKEY_LOCAL_MACHINE;
  section_key_ = "SOFTWARE\\Classes\\" + section;
  SetValue(text);
  section_key_ = section;
}

void cRegistry::SetVerb(const std::string& class_name, const std::string& verb,
                        const std::string& caption, const std::string& command) {
  const std::string section = class_name + "\\shell\\" + verb;
  SetClassValue(section, caption);
  SetClassValue(section + "\\command", command);
}

void cRegistry::CreateEXEAssociation(const Association& association) {
  const std::string path = Quoted(std::string(TrimBlanks(association.program_path)));
  const std::string& name = association.class_name;
  SetClassValue("." + association.extension, name);
  SetClassValue(name, association.class_description);
  SetVerb(name, "open", Or(association.open_caption, "&Open"), path + " \"%1\"");
  if (association.print) {
    SetVerb(name, "print", Or(association.print_caption, "&Print"), path + " /p \"%1\"");
  }
  if (association.install) {
    SetVerb(name, "add",
            Or(association.install_caption, "&Install " + association.class_description),
            path + " /a \"%1\"");
  }
  if (association.create) {
    SetVerb(name, "new", Or(association.create_caption, "&New"), path + " /n \"%1\"");
  }
  if (association.icon_index != -1) {
    SetClassValue(name + "\\DefaultIcon", path + "," + std::to_string(association.icon_index));
  }
}

void cRegistry::CreateAdditionalEXEAssociations(
    const std::string& class_name, const std::vector<std::string>& names_texts_commands) {
  constexpr std::size_t kEach = 3;
  if (names_texts_commands.size() % kEach != 0) {
    Raise(
        "Invalid parameter list passed to CreateAdditionalEXEAssociations - expected "
        "Name/Text/Command");
  }
  class_key_ = HKEY_CLASSES_ROOT;
  section_key_ = class_name;
  if (!KeyExists()) {
    Raise("Error - attempt to create additional associations before class defined.");
  }
  for (std::size_t index = 0; index < names_texts_commands.size(); index += kEach) {
    SetVerb(class_name, names_texts_commands[index], names_texts_commands[index + 1],
            names_texts_commands[index + 2]);
  }
}

}  // namespace tidemark
