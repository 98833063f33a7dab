// Owners for what COM hands out.
#pragma once

#include <memory>

#include "platform/winapi.h"

namespace tidemark {

// COM on this thread, for as long as it lives; nests. A thread that is in another kind of apartment
// stays there.
class ComApartment {
 public:
  ComApartment() : status_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
  ~ComApartment() {
    if (SUCCEEDED(status_)) CoUninitialize();
  }
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;

 private:
  HRESULT status_;
};

struct ComRelease {
  void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using ComPointer = std::unique_ptr<Interface, ComRelease>;

// Null when the class is not there or lacks the interface.
template <class Interface>
ComPointer<Interface> MakeComObject(REFCLSID class_id, REFIID interface_id) {
  void* object = nullptr;
  if (FAILED(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, interface_id, &object))) {
    return {};
  }
  return ComPointer<Interface>(static_cast<Interface*>(object));
}

}  // namespace tidemark
