#include "platform/file_type_text.h"

#include "platform/hosted/file_store.h"
#include "platform/hosted/hosted_pc.h"
#include "platform/hosted/registry_call_checks.h"
#include "platform/hosted/registry_store.h"
#include "platform/letter_case.h"
#include "platform/registry_rules.h"
#include "platform/winapi.h"

namespace tidemark {
namespace {

// The text of the default value of a key under HKEY_CLASSES_ROOT; empty when there is none.
std::string DefaultText(const std::string& key) {
  hosted::RegistryStore& store = hosted::CurrentRegistry();
  hosted::OpenKey classes;
  if (hosted::Resolve(store, HKEY_CLASSES_ROOT, 0, &classes) != ERROR_SUCCESS) return {};
  const hosted::RegistryView view = store.Open(classes.view, key);
  const hosted::RegistryValue* const value = view.exists() ? store.FindValue(view, {}) : nullptr;
  if (value == nullptr || !IsTextType(value->type())) return {};
  return std::string(value->data().substr(0, value->data().find('\0')));
}

}  // namespace

std::string FileTypeText(const std::string& path) {
  DWORD attributes = 0;
  if (hosted::HostedPc::Current().files().GetAttributes(path, attributes) != ERROR_SUCCESS) {
    return {};
  }
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return "File folder";
  const std::string name = path.substr(path.find_last_of("\\/:") + 1);
  const auto dot = name.find_last_of('.');
  if (dot == std::string::npos || dot + 1 == name.size()) return "File";
  const std::string type = DefaultText(name.substr(dot));
  const std::string text = type.empty() ? std::string() : DefaultText(type);
  return text.empty() ? UpperCase(name.substr(dot + 1)) + " File" : text;
}

}  // namespace tidemark
