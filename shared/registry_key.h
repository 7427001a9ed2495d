#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "seam/platform.h"

// An open key of the registry in use, and reading from it without the program's own
// errors: the string library, which has their words, is found with these functions.
namespace trelin {

// Where the suite's keys lie, below HKEY_LOCAL_MACHINE.
constexpr const char* SuiteRoot = "SOFTWARE\\Korvanta";

// Whether an operation of the registry in use has succeeded, by its result. Throws
// PlatformError with its Trouble for RegistryUnusable: a registry that cannot be
// read is not to look like one in which something is missing.
bool Succeeded(std::int32_t lResult);

// Owns an open key and closes it at the end of its scope.
class KeyHandle {
 public:
  KeyHandle() = default;
  explicit KeyHandle(RegistryKey hKey) : hKey_(hKey) {}
  ~KeyHandle() { Close(); }
  KeyHandle(KeyHandle&& other) noexcept : hKey_(std::exchange(other.hKey_, RegistryKey::None)) {}
  KeyHandle& operator=(KeyHandle&& other) noexcept {
    std::swap(hKey_, other.hKey_);
    return *this;
  }

  void Close() {
    if (hKey_ != RegistryKey::None) TheRegistry().CloseKey(std::exchange(hKey_, RegistryKey::None));
  }
  RegistryKey Get() const { return hKey_; }
  bool IsOpen() const { return hKey_ != RegistryKey::None; }

 private:
  RegistryKey hKey_ = RegistryKey::None;
};

// Opens sPath below hParent for reading and writing; no key when that fails.
KeyHandle TryOpen(RegistryKey hParent, const std::string& sPath);

// The value's data as a text, whatever its type, without one NUL at its end. Empty
// when there is no such value, or more than RegistryBufferBytes of data.
std::string ReadText(RegistryKey hKey, const std::string& sName);

}  // namespace trelin
