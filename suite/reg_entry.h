#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "shared/registry_key.h"

namespace trelin {

// The program's only access to the registry: at most one open key, the
// current key. Key names are relative to a root below HKEY_LOCAL_MACHINE and
// may name a key several levels down. Keys are opened for reading and
// writing, so a key that may only be read counts as missing. Values are
// texts; at most 255 bytes are read. Everything that works on the current key
// does nothing while none is open. Destroying the object closes its key.
//
// The operations on whole trees are in reg_entry_trees.cpp; it is the suite's
// installers that ask for them, not the launcher. They list keys and
// values as far as names and data fit into 255 bytes: the first one that does
// not ends the list. What another process changes meanwhile may be missed or
// seen twice.
class RegEntry {
 public:
  // Values as QueryValues lists them: rows 0 to 2, each with one column more
  // than there are values. Row 0 holds their names, row 1 their data; row 2
  // and the last column stay empty.
  using ValueArray = std::array<std::vector<std::string>, 3>;

  // Copies the current key's values, as REG_SZ with the same bytes, and then
  // its subkeys, to the key sNewKey, which is created where it is missing and
  // keeps what it has besides. A value that cannot be written is left out.
  // Throws error 5001 for a subkey that does not open, and 5000 for one that
  // cannot be created or when sNewKey is the current key or lies inside it;
  // in that last case nothing has been written.
  void Copy(const std::string& sNewKey) const;

  // Opens the key, creating every level of it that is missing. Throws error
  // 5000, and then no key is open.
  void CreateKey(const std::string& sKey);

  // Removes a value; a missing one is no error.
  void DeleteValue(const std::string& sName);

  // Appends the names of the current key's subkeys and returns how many texts
  // colKeys then holds; 0 without a current key and after an error.
  std::int16_t Query(std::vector<std::string>& colKeys) const;

  // Replaces vResults by the current key's values and returns their number; 0
  // without a current key and after an error. Data is taken as text, without
  // the NULs at its end.
  std::int16_t QueryValues(ValueArray& vResults) const;

  // Removes the registration of a component under HKEY_CLASSES_ROOT: the keys
  // of its programmatic identifier, of its class and of its type library, as
  // far as one leads to the next. Ignores every error.
  static void RemoveProgID(const std::string& sProgID);

  // Writes "true" or "false".
  void SetBoolean(const std::string& sName, bool bValue);

  // Writes a text; an empty one removes the value. Throws error 5002.
  void SetString(const std::string& sName, const std::string& sValue);

  // Deletes the subkey sKey of the current key, or of lParentKey, with
  // everything below it, depth first. Throws error 5001 when a key does not
  // open, when an emptied subkey is still there, and for a name that is empty or
  // backslashes alone, which would mean the parent itself; what is deleted by
  // then stays deleted. That sKey itself cannot be deleted is not reported.
  void DeleteKey(const std::string& sKey) const;
  static void DeleteInternal(RegistryKey lParentKey, const std::string& sKey);

  // Opens the key. Throws error 5001, and then no key is open.
  void OpenKey(const std::string& sKey);

  // Whether the key opens. The current key stays as it is. What keeps the registry
  // from being read at all is thrown.
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
  std::string FullPath(const std::string& sKey) const;
  void CloseKey() { currentKey_.Close(); }

  KeyHandle currentKey_;
  std::string sCurrentPath_;  // of the current key, below the hive
  std::string sRoot_ = SuiteRoot;
};

// What its operations on one key and on whole trees share.

// Opens sPath below hParent for reading and writing. Throws error 5001.
KeyHandle OpenInternal(RegistryKey hParent, const std::string& sPath);

// The same, but creates every level that is missing. Throws error 5000.
KeyHandle CreateInternal(RegistryKey hParent, const std::string& sPath);

}  // namespace trelin
