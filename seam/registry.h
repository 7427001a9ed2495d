#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace trelin {

// A handle of an open registry key, or one of the hives, which are always
// open. None is no key.
enum class RegistryKey : std::int32_t {
  None = 0,
  ClassesRoot = static_cast<std::int32_t>(0x80000000U),
  LocalMachine = static_cast<std::int32_t>(0x80000002U),
};

constexpr std::uint32_t RegistryRead = 0x20019;       // KEY_READ
constexpr std::uint32_t RegistryReadWrite = 0x2001F;  // KEY_READ with KEY_WRITE
constexpr std::uint32_t RegistryTypeText = 1;         // REG_SZ

// The limits of a Windows registry, which every implementation keeps: the
// characters of a key's name, those of a value's name, and how many levels deep a
// key may lie, its hive being the first.
constexpr std::size_t RegistryLongestKeyName = 255;
constexpr std::size_t RegistryLongestValueName = 16383;
constexpr std::size_t RegistryDeepestLevel = 512;

// How many bytes of names and data the program reads at the most.
constexpr std::uint32_t RegistryBufferBytes = 255;

// Results of the operations below: 0 is success, everything else a failure, by
// the numbers that Windows gives. Callers tell no failures apart but the last one.
constexpr std::int32_t RegistrySuccess = 0;
constexpr std::int32_t RegistryNotFound = 2;       // ERROR_FILE_NOT_FOUND
constexpr std::int32_t RegistryAccessDenied = 5;   // ERROR_ACCESS_DENIED
constexpr std::int32_t RegistryInvalidHandle = 6;  // ERROR_INVALID_HANDLE
constexpr std::int32_t RegistryMoreData = 234;     // ERROR_MORE_DATA
constexpr std::int32_t RegistryNoMoreItems = 259;  // ERROR_NO_MORE_ITEMS
constexpr std::int32_t RegistryKeyDeleted = 1018;  // ERROR_KEY_DELETED

// The registry as a whole cannot be read or written, as when the file that holds
// it is damaged: what was asked for may be there all the same, and Trouble says
// what is wrong. Windows leaves the numbers with this bit to programs.
constexpr std::int32_t RegistryUnusable = 0x20000000;

// What the program needs of a Windows registry: the ten operations that its
// registry accessor calls, with results, lengths and buffers as the ANSI
// functions of advapi32 have them. Texts are in the system's ANSI code page,
// lengths are bytes. Names of keys and values match in any letter case; a
// path may hold backslashes. Each operation gives one of the results above and
// throws nothing but std::bad_alloc; where it fails, what it would put into its
// arguments is not to be relied on.
class Registry {
 public:
  virtual ~Registry() = default;

  // Opens sPath below hParent; an empty path opens hParent itself again, or
  // gives the hive that hParent is. Success puts a handle into hKey, which the
  // caller closes with CloseKey. Fails when the key is missing or refuses
  // lAccess.
  virtual std::int32_t OpenKey(RegistryKey hParent, const std::string& sPath, std::uint32_t lAccess,
                               RegistryKey& hKey) = 0;

  // Opens sPath below hParent, creating what is missing of it. Success puts a
  // handle into hKey, which the caller closes with CloseKey.
  virtual std::int32_t CreateKey(RegistryKey hParent, const std::string& sPath,
                                 std::uint32_t lAccess, RegistryKey& hKey) = 0;

  // Gives a handle back; a hive stays open. Throws nothing.
  virtual std::int32_t CloseKey(RegistryKey hKey) noexcept = 0;

  // Reads the data of the value sName (empty: the default value), whatever
  // its type. lSize holds the buffer's size on entry and the data's length on
  // success. Fails when the value is missing or longer than the buffer.
  virtual std::int32_t QueryValue(RegistryKey hKey, const std::string& sName, char* pData,
                                  std::uint32_t& lSize) = 0;

  // Writes lSize bytes under the name sName, replacing what was there. The
  // bytes are stored as they are: no terminating NUL is added.
  virtual std::int32_t SetValue(RegistryKey hKey, const std::string& sName, std::uint32_t lType,
                                const char* pData, std::uint32_t lSize) = 0;

  // Removes the value sName. Fails when it is missing.
  virtual std::int32_t DeleteValue(RegistryKey hKey, const std::string& sName) = 0;

  // Copies the NUL-terminated name of the subkey at lIndex (from 0, in no
  // certain order) into a buffer of lSize bytes. Fails past the last subkey.
  virtual std::int32_t EnumKey(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                               std::uint32_t lSize) = 0;

  // Copies the NUL-terminated name and the data of the value at lIndex (from
  // 0, in no certain order). The two sizes hold the buffers' sizes on entry
  // and the lengths, the name's without its NUL, on success. Fails past the
  // last value and when a buffer is too small.
  virtual std::int32_t EnumValue(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                                 std::uint32_t& lNameSize, char* pData,
                                 std::uint32_t& lDataSize) = 0;

  // Removes the key sName below hParent with its values. Fails when it is
  // missing or has subkeys.
  virtual std::int32_t DeleteKey(RegistryKey hParent, const std::string& sName) = 0;

  // Reads the default value of the subkey sName as a NUL-terminated text.
  // lSize holds the buffer's size on entry and the length including the NUL
  // on success; a key without a default value gives the empty text.
  virtual std::int32_t QueryDefault(RegistryKey hKey, const std::string& sName, char* pData,
                                    std::int32_t& lSize) = 0;

  // Why the last operation whose result was RegistryUnusable gave it: a sentence
  // for the user. Empty in a registry that never gives it.
  virtual std::string Trouble() const { return ""; }
};

}  // namespace trelin
