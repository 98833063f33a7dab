// Shell links through the shell's own objects: IShellLink and IPersistFile, which every Windows
// has.
#include "platform/shell_link.h"

#include <optional>
#include <string_view>
#include <utility>

#include "platform/file_system_object.h"
#include "platform/link_file.h"
#include "platform/link_names.h"
#include "platform/link_soundness.h"
#include "platform/unicode.h"
#include "platform/winapi.h"
#include "platform/windows/com.h"
#include "platform/windows/wide_text.h"

namespace tidemark {
namespace {

// Makes links. Looking the class up in the registry costs more than reading a link, so it is done
// once, and COM stays: one thread asks for links, to the program's end.
class LinkMaker {
 public:
  // Null when the shell has no such class.
  static ComPointer<IShellLinkW> Make() {
    static const LinkMaker maker;
    void* link = nullptr;
    if (!maker.factory_ ||
        FAILED(maker.factory_->CreateInstance(nullptr, IID_IShellLinkW, &link))) {
      return {};
    }
    return ComPointer<IShellLinkW>(static_cast<IShellLinkW*>(link));
  }

 private:
  LinkMaker() {
    void* factory = nullptr;
    if (SUCCEEDED(CoGetClassObject(CLSID_ShellLink, CLSCTX_INPROC_SERVER, nullptr,
                                   IID_IClassFactory, &factory))) {
      factory_.reset(static_cast<IClassFactory*>(factory));
    }
  }

  ComApartment com_;
  ComPointer<IClassFactory> factory_;
};

// Null when the object lacks the interface.
template <class Interface>
ComPointer<Interface> As(IShellLinkW& link, REFIID interface_id) {
  void* found = nullptr;
  if (FAILED(link.QueryInterface(interface_id, &found))) return {};
  return ComPointer<Interface>(static_cast<Interface*>(found));
}

constexpr int kLongestText = 32768;

// The link of these bytes, which are read at once: the shell reads a file in small pieces. Null
// when they are none.
ComPointer<IShellLinkW> Load(std::string_view bytes) {
  ComPointer<IShellLinkW> link = LinkMaker::Make();
  if (!link) return {};
  const ComPointer<IStream> stream(SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()),
                                                     static_cast<UINT>(bytes.size())));
  const auto persist = As<IPersistStream>(*link, IID_IPersistStream);
  if (!stream || !persist || FAILED(persist->Load(stream.get()))) return {};
  return link;
}

// What a getter that fills a buffer gives; empty when it fails.
template <class Getter>
std::wstring TextOf(Getter&& getter) {
  static std::wstring buffer(kLongestText, L'\0');  // made once: a scan reads thousands
  buffer[0] = L'\0';
  if (FAILED(getter(buffer.data(), kLongestText))) return {};
  return buffer.c_str();
}

std::wstring IconOf(IShellLinkW& link, int& index) {
  return TextOf([&](wchar_t* text, int size) { return link.GetIconLocation(text, size, &index); });
}

DWORD FlagsOf(IShellLinkW& link) {
  const auto data = As<IShellLinkDataList>(link, IID_IShellLinkDataList);
  DWORD flags = 0;
  return data && SUCCEEDED(data->GetFlags(&flags)) ? flags : 0;
}

std::string PathOf(IShellLinkW& link) {
  return Narrow(
      TextOf([&](wchar_t* text, int size) { return link.GetPath(text, size, nullptr, 0); }));
}

// What the shell says or, where it does not tell, what the file does: Wine's knows neither relative
// paths nor shares, takes 8-bit texts as the process's code page, which is UTF-8, and of a path in
// both forms the 8-bit one, with a "?" for what its code page lacked.
std::string TargetOf(IShellLinkW& link, const std::string& bytes, const std::string& file) {
  // For an advertised link of an installer, which has no path, the shell makes one up.
  if ((FlagsOf(link) & SLDF_HAS_DARWINID) != 0) return {};
  std::string target = PathOf(link);
  const bool whole = !HasReplacementCharacter(target) && target.find('?') == std::string::npos;
  if (!target.empty() && whole) return target;
  const auto read = ParseLinkFile(bytes);
  return read ? TargetOf(*read, file) : target;
}

// Reads a link that there is, and its bytes; null, and the status, for any other file.
ComPointer<IShellLinkW> Open(const std::string& file, std::string& bytes, LinkStatus& status) {
  const auto read = IsFullPath(file) ? FileSystemObject().ReadAll(file) : std::nullopt;
  bytes = read.value_or(std::string());
  if (!read) {
    const bool is_there = IsFullPath(file) && FileSystemObject().FileExists(file);
    status = is_there ? LinkStatus::kFailed : LinkStatus::kNoItem;
    return {};
  }
  ComPointer<IShellLinkW> link = IsSoundLinkFile(bytes) ? Load(bytes) : nullptr;
  status = link ? LinkStatus::kDone : LinkStatus::kFailed;
  return link;
}

}  // namespace

LinkStatus ReadLinkFile(const std::string& file, LinkFields& fields) {
  LinkStatus status;
  std::string bytes;
  const ComPointer<IShellLinkW> opened = Open(file, bytes, status);
  if (!opened) return status;
  IShellLinkW& link = *opened;
  LinkFields read;
  read.name = LinkNameOf(file);
  read.target = TargetOf(link, bytes, file);
  read.arguments =
      Narrow(TextOf([&](wchar_t* text, int size) { return link.GetArguments(text, size); }));
  read.description =
      Narrow(TextOf([&](wchar_t* text, int size) { return link.GetDescription(text, size); }));
  read.working_directory =
      Narrow(TextOf([&](wchar_t* text, int size) { return link.GetWorkingDirectory(text, size); }));
  read.icon_file = Narrow(IconOf(link, read.icon_index));
  WORD hot_key = 0;
  int show_command = 0;
  if (SUCCEEDED(link.GetHotkey(&hot_key))) read.hot_key = hot_key;
  if (SUCCEEDED(link.GetShowCmd(&show_command))) read.show_command = show_command;
  fields = std::move(read);
  return LinkStatus::kDone;
}

LinkStatus ChangeLinkFile(const std::string& file, const LinkFields& fields) {
  LinkStatus status;
  std::string bytes;
  const ComPointer<IShellLinkW> old = Open(file, bytes, status);
  if (!old) return status;
  // All fields are set, so a new link takes the old one's place: of a loaded one Wine writes the
  // relative path without a word in the header, and all texts behind it are then read wrong.
  const ComPointer<IShellLinkW> changed = LinkMaker::Make();
  const auto persist = changed ? As<IPersistFile>(*changed, IID_IPersistFile) : nullptr;
  if (!persist) return LinkStatus::kFailed;
  IShellLinkW& link = *changed;
  int icon_index = fields.icon_index;
  std::wstring icon_file = Wide(fields.icon_file);
  if (icon_file.empty()) icon_file = IconOf(*old, icon_index);
  // A target that is missing is stored all the same (S_FALSE).
  const bool set =
      SUCCEEDED(link.SetPath(Wide(fields.target).c_str())) &&
      SUCCEEDED(link.SetArguments(Wide(fields.arguments).c_str())) &&
      SUCCEEDED(link.SetDescription(Wide(fields.description).c_str())) &&
      SUCCEEDED(link.SetHotkey(fields.hot_key)) &&
      SUCCEEDED(link.SetShowCmd(fields.show_command)) &&
      SUCCEEDED(link.SetWorkingDirectory(Wide(fields.working_directory).c_str())) &&
      (icon_file.empty() || SUCCEEDED(link.SetIconLocation(icon_file.c_str(), icon_index)));
  if (!set || FAILED(persist->Save(Wide(file).c_str(), TRUE))) return LinkStatus::kFailed;
  return LinkStatus::kDone;
}

}  // namespace tidemark
