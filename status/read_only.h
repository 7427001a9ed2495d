#pragma once

#include <memory>
#include <string>

#include "seam/registry.h"
#include "seam/system.h"

// What stands between the suite's code and the computer, so that it can only look.
namespace trelin {

// A registry whose keys open for reading, whatever is asked for. What would change
// something is refused with RegistryAccessDenied.
class ReadOnlyRegistry : public Registry {
 public:
  // With b32Bits the place where 64-bit Windows keeps the records of 32-bit programs.
  ReadOnlyRegistry(Registry& registry, bool b32Bits) : registry_(registry), b32Bits_(b32Bits) {}
  ~ReadOnlyRegistry() override { CloseIdle(); }
  ReadOnlyRegistry(const ReadOnlyRegistry&) = delete;
  ReadOnlyRegistry& operator=(const ReadOnlyRegistry&) = delete;

  std::int32_t OpenKey(RegistryKey hParent, const std::string& sPath, std::uint32_t lAccess,
                       RegistryKey& hKey) override;
  std::int32_t CreateKey(RegistryKey hParent, const std::string& sPath, std::uint32_t lAccess,
                         RegistryKey& hKey) override;
  std::int32_t CloseKey(RegistryKey hKey) noexcept override;
  std::int32_t QueryValue(RegistryKey hKey, const std::string& sName, char* pData,
                          std::uint32_t& lSize) override {
    return registry_.QueryValue(hKey, sName, pData, lSize);
  }
  std::int32_t SetValue(RegistryKey hKey, const std::string& sName, std::uint32_t lType,
                        const char* pData, std::uint32_t lSize) override;
  std::int32_t DeleteValue(RegistryKey hKey, const std::string& sName) override;
  std::int32_t EnumKey(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                       std::uint32_t lSize) override {
    return registry_.EnumKey(hKey, lIndex, pName, lSize);
  }
  std::int32_t EnumValue(RegistryKey hKey, std::uint32_t lIndex, char* pName,
                         std::uint32_t& lNameSize, char* pData, std::uint32_t& lDataSize) override {
    return registry_.EnumValue(hKey, lIndex, pName, lNameSize, pData, lDataSize);
  }
  std::int32_t DeleteKey(RegistryKey hParent, const std::string& sName) override;
  std::int32_t QueryDefault(RegistryKey hKey, const std::string& sName, char* pData,
                            std::int32_t& lSize) override {
    return registry_.QueryDefault(hKey, sName, pData, lSize);
  }
  std::string Trouble() const override { return registry_.Trouble(); }

 private:
  std::int32_t OpenInPlace(RegistryKey hParent, const std::string& sPath, RegistryKey& hKey);
  void CloseIdle() noexcept;

  Registry& registry_;
  bool b32Bits_;

  // The key of HKEY_LOCAL_MACHINE that was opened last. As each product asks for the same
  // one, it is idle instead of closed until another is opened.
  std::string sLastPath_;
  RegistryKey hLast_ = RegistryKey::None;
  bool bIdle_ = false;
};

// A system without windows or sounds: messages go to the error output, and no program
// is started.
class QuietSystem : public System {
 public:
  // bFilesOfOthers: the files that are searched for lie on another computer; each
  // counts as there, and nobody looks.
  QuietSystem(System& system, bool bFilesOfOthers)
      : system_(system), bFilesOfOthers_(bFilesOfOthers) {}

  std::string ProgramFolder() override { return system_.ProgramFolder(); }
  std::string CommandLineText() override { return system_.CommandLineText(); }
  void MakeUpperCase(std::span<char> text) override { system_.MakeUpperCase(text); }
  std::unique_ptr<InputFile> OpenInput(const std::string& sPath) override {
    return system_.OpenInput(sPath);
  }
  std::unique_ptr<FileSearch> Search(const std::string& sPath) override;
  void Beep() override {}
  MessageAnswer ShowMessage(const std::string& sText, MessageIcon icon, MessageButtons buttons,
                            const std::string& sTitle) override;
  void StartProgram(const std::string& sCommandLine) override;

 private:
  System& system_;
  bool bFilesOfOthers_;
};

}  // namespace trelin
