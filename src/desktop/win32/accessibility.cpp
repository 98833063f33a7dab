#include "desktop/win32/accessibility.h"

#include <array>
#include <string>

#include "platform/windows/com.h"
#include "platform/windows/wide_text.h"
#include "toolkit/access_key.h"
// After the platform's own header.
#include <oleacc.h>

namespace tidemark {
namespace {

constexpr auto kWindowContents = static_cast<DWORD>(OBJID_CLIENT);

// The system's annotations of windows, made at the first use and kept: there are many windows.
struct Annotations {
  ComApartment apartment;
  ComPointer<IAccPropServices> services =
      MakeComObject<IAccPropServices>(CLSID_AccPropServices, IID_IAccPropServices);
};

// Null where the system has none. Windows, and so this, belong to the one user-interface thread.
IAccPropServices* Services() {
  static const Annotations annotations;
  return annotations.services.get();
}

bool Annotate(HWND window, const ShownCaption& name, long role) {
  IAccPropServices* const services = Services();
  if (services == nullptr ||
      FAILED(services->SetHwndPropStr(window, kWindowContents, CHILDID_SELF, PROPID_ACC_NAME,
                                      Wide(name.text).c_str()))) {
    return false;
  }
  if (name.key_size != 0) {
    const std::wstring keys = L"Alt+" + Wide(name.Key());
    services->SetHwndPropStr(window, kWindowContents, CHILDID_SELF, PROPID_ACC_KEYBOARDSHORTCUT,
                             keys.c_str());
  }
  if (role != 0) {
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = role;
    services->SetHwndProp(window, kWindowContents, CHILDID_SELF, PROPID_ACC_ROLE, value);
  }
  return true;
}

// Whether a person sees the text of the window, so that it is not ours to set.
bool ShowsItsText(HWND window) {
  const LONG_PTR style = GetWindowLongPtrA(window, GWL_STYLE);
  if ((style & WS_CHILD) == 0) return true;
  std::array<char, 32> name{};
  GetClassNameA(window, name.data(), static_cast<int>(name.size()));
  const auto is = [&name](const char* other) { return lstrcmpiA(name.data(), other) == 0; };
  if (is("Static")) return (style & SS_TYPEMASK) <= SS_RIGHT;
  if (is("Button")) return (style & (BS_BITMAP | BS_ICON)) == 0 && (style & 0xF) != BS_OWNERDRAW;
  return is("Edit") || is("ComboBox");
}

}  // namespace

void SetAccessible(HWND window, std::string_view name, long role) {
  const ShownCaption shown = ShowCaption(name);
  if (Annotate(window, shown, role) || ShowsItsText(window)) return;
  SetWindowTextA(window, shown.text.c_str());
}

void ForgetAccessible(HWND window) {
  IAccPropServices* const services = Services();
  if (services == nullptr) return;
  constexpr int kCount = 3;
  const std::array<GUID, kCount> properties{PROPID_ACC_NAME, PROPID_ACC_ROLE,
                                            PROPID_ACC_KEYBOARDSHORTCUT};
  services->ClearHwndProps(window, kWindowContents, CHILDID_SELF, properties.data(), kCount);
}

}  // namespace tidemark
