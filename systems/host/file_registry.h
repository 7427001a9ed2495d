#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "shared/memory_registry.h"
#include "systems/host/registry_store.h"

namespace trelin {

// A registry kept in a file in the registry-export text format, which several
// programs may read and write at a time. A file that does not exist is an
// empty registry; it and its folder are created by the first change.
//
// OpenKey, CreateKey and what changes something work with the file as it is at
// that moment; the other operations with what these last read. An open handle
// stays with its path when the file has changed, and counts as one of a
// deleted key where the path has gone. A change is in the file when its
// operation returns, or else nowhere: RegistryAccessDenied, RegistryDiskFull
// and RegistryWriteFault leave the file and the memory as they were. Names
// with a line break, which the format cannot hold, are refused with
// RegistryInvalidParameter. A file that may not be written refuses its keys to
// everyone who opens them for writing.
//
// A change gives RegistryUnusable, and changes nothing, when others hold the
// file's lock for five seconds.
//
// While the file cannot be read or is damaged, every operation except CloseKey
// gives RegistryUnusable, and the file is left alone. As somebody may be in the
// middle of writing it, a file is read again for a tenth of a second before it
// counts as damaged or as gone.
class FileRegistry : public Registry {
 public:
  // sPath: a path of this system. longestWait: for the file's lock.
  explicit FileRegistry(const std::string& sPath,
                        std::chrono::milliseconds longestWait = RegistryStore::LongestWait)
      : store_(sPath, longestWait) {}

  // The environment variable TRELIN_REGISTRY, else trelin/registry.reg in the
  // user's data folder.
  static std::string DefaultPath();

  std::int32_t OpenKey(RegistryKey hParent, const std::string& sPath, std::uint32_t lAccess,
                       RegistryKey& hKey) override;
  std::int32_t CreateKey(RegistryKey hParent, const std::string& sPath, std::uint32_t lAccess,
                         RegistryKey& hKey) override;
  std::int32_t CloseKey(RegistryKey hKey) noexcept override { return memory_.CloseKey(hKey); }
  std::int32_t QueryValue(RegistryKey hKey, const std::string& sName, char* pData,
                          std::uint32_t& lSize) override;
  std::int32_t SetValue(RegistryKey hKey, const std::string& sName, std::uint32_t lType,
                        const char* pData, std::uint32_t lSize) override;
  std::int32_t DeleteValue(RegistryKey hKey, const std::string& sName) override;
  std::int32_t EnumKey(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                       std::uint32_t lSize) override;
  std::int32_t EnumValue(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                         std::uint32_t& lNameSize, char* pData, std::uint32_t& lDataSize) override;
  std::int32_t DeleteKey(RegistryKey hParent, const std::string& sName) override;
  std::int32_t QueryDefault(RegistryKey hKey, const std::string& sName, char* pData,
                            std::int32_t& lSize) override;
  std::string Trouble() const override { return sTrouble_; }

  std::size_t OpenHandles() const { return memory_.OpenHandles(); }

  // How often the file was read, and how often it held other bytes than before.
  std::size_t Reads() const { return nReads_; }
  std::size_t Parses() const { return nParses_; }

 private:
  bool Refresh();
  bool Load();
  bool Loaded();
  std::unique_ptr<RegistryNode> ReadTree();
  std::unique_ptr<RegistryNode> Parse(const std::string& sBytes);
  std::int32_t Write(const std::function<std::int32_t()>& change);

  RegistryStore store_;
  MemoryRegistry memory_;
  bool bDamaged_ = false;  // memory_ is not what the file holds
  std::string sTrouble_;   // the last one
  FileStamp stamp_;
  bool bSettled_ = false;              // an equal stamp means an unchanged file
  std::optional<std::string> sKnown_;  // the bytes that memory_ was read from, until it is settled
  bool bWritable_ = true;
  std::size_t nReads_ = 0;
  std::size_t nParses_ = 0;
};

}  // namespace trelin
