#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "seam/platform.h"

// What the registry accessor's operations on one key and on whole trees share.
namespace trelin {

// The rooms for enumerated names and data: a NUL stands behind 255 bytes.
constexpr std::uint32_t RegistryBufferBytes = 255;

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
KeyHandle TryOpenInternal(RegistryKey hParent, const std::string& sPath);

// The same, but throws error 5001 when it fails.
KeyHandle OpenInternal(RegistryKey hParent, const std::string& sPath);

// As OpenInternal, but creates every level that is missing. Throws error 5000.
KeyHandle CreateInternal(RegistryKey hParent, const std::string& sPath);

}  // namespace trelin
