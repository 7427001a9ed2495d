#pragma once

#include <cstdint>
#include <string>

#include "platform/registry.h"

namespace trelin {

// The program's only access to the registry: at most one open key, the
// current key. Key names are relative to a root below HKEY_LOCAL_MACHINE and
// may name a key several levels down. Keys are opened for reading and
// writing, so a key that may only be read counts as missing. Values are
// texts; at most 255 bytes are read. The value operations do nothing while no
// key is open. Destroying the object closes its key.
class RegEntry {
 public:
  RegEntry() = default;
  ~RegEntry() { CloseKey(); }
  RegEntry(const RegEntry&) = delete;
  RegEntry& operator=(const RegEntry&) = delete;

  // Opens the key, creating every level of it that is missing. Throws error
  // 5000, and then no key is open.
  void CreateKey(const std::string& sKey);

  // Removes a value; a missing one is no error.
  void DeleteValue(const std::string& sName);

  // Writes "true" or "false".
  void SetBoolean(const std::string& sName, bool bValue);

  // Writes a text; an empty one removes the value. Throws error 5002.
  void SetString(const std::string& sName, const std::string& sValue);

  // Opens the key. Throws error 5001, and then no key is open.
  void OpenKey(const std::string& sKey);

  // Whether the key opens. The current key stays as it is.
  bool TestKey(const std::string& sKey) const;

  // False for a missing or empty value and for the texts 0, no and false (in
  // any letter case); true for every other text.
  bool GetBoolean(const std::string& sName) const;

  // The value's data as text whatever its type, without one trailing NUL;
  // empty when the value is missing or longer than 255 bytes.
  std::string GetString(const std::string& sName) const;

  // The value whose name is the language code of the locale identifier lId
  // and then sName (ENUTitle), or the value sName when that one is empty.
  std::string GetStringInternational(const std::string& sName, std::int32_t lId) const;

  // The path below HKEY_LOCAL_MACHINE that key names are relative to. A new
  // one counts from the next call; the current key stays open.
  const std::string& DefaultRoot() const { return sRoot_; }
  void SetDefaultRoot(const std::string& s) { sRoot_ = s; }

 private:
  std::string FullPath(const std::string& sKey) const { return sRoot_ + "\\" + sKey; }
  void CloseKey();

  RegistryKey hCurrentKey_ = RegistryKey::None;
  std::string sRoot_ = "SOFTWARE\\Korvanta";
};

}  // namespace trelin
