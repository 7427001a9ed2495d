#pragma once

#include <windows.h>
#include <unknwn.h>

#include <memory>
#include <stdexcept>

#include "systems/windows/windows_error.h"

namespace trelin {

// Sets up COM on the program's thread until its end; once is enough.
void SetUpCom();

struct ComReleaser {
  void operator()(IUnknown* pObject) const { pObject->Release(); }
};
template <class Interface>
using ComOwner = std::unique_ptr<Interface, ComReleaser>;

// Throws std::runtime_error with the system's reason when an operation failed.
inline void Require(HRESULT result) {
  if (FAILED(result)) throw std::runtime_error(SystemReason(static_cast<DWORD>(result)));
}

// The object that a function of the system puts into its last argument.
template <class Interface, class Function>
ComOwner<Interface> Made(Function make) {
  Interface* pObject = nullptr;
  Require(make(&pObject));
  return ComOwner<Interface>(pObject);
}

}  // namespace trelin
