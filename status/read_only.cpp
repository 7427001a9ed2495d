#include "status/read_only.h"

#include <optional>
#include <string_view>
#include <utility>

#include "seam/console.h"
#include "seam/platform_error.h"

namespace trelin {

namespace {

// Where the records of 32-bit programs are, of a path below HKEY_LOCAL_MACHINE.
std::string In32BitPlace(const std::string& sPath) {
  constexpr std::string_view Software = "SOFTWARE\\";
  return sPath.starts_with(Software) ? "SOFTWARE\\WOW6432Node\\" + sPath.substr(Software.size())
                                     : sPath;
}

// Finds one file.
class AssumedFile : public FileSearch {
 public:
  std::optional<std::string> Next() override {
    if (std::exchange(bFound_, true)) return std::nullopt;
    return "recorded";
  }

 private:
  bool bFound_ = false;
};

}  // namespace

std::int32_t ReadOnlyRegistry::OpenInPlace(RegistryKey hParent, const std::string& sPath,
                                           RegistryKey& hKey) {
  const bool bMoves = b32Bits_ && hParent == RegistryKey::LocalMachine;
  return registry_.OpenKey(hParent, bMoves ? In32BitPlace(sPath) : sPath, RegistryRead, hKey);
}

std::int32_t ReadOnlyRegistry::OpenKey(RegistryKey hParent, const std::string& sPath,
                                       std::uint32_t /*lAccess*/, RegistryKey& hKey) {
  const bool bKept = hParent == RegistryKey::LocalMachine;
  if (bKept && bIdle_ && sPath == sLastPath_) {
    bIdle_ = false;
    hKey = hLast_;
    return RegistrySuccess;
  }
  const std::int32_t lResult = OpenInPlace(hParent, sPath, hKey);
  if (bKept && lResult == RegistrySuccess) {
    CloseIdle();
    sLastPath_ = sPath;
    hLast_ = hKey;
  }
  return lResult;
}

std::int32_t ReadOnlyRegistry::CloseKey(RegistryKey hKey) noexcept {
  if (hKey != hLast_) return registry_.CloseKey(hKey);
  bIdle_ = true;
  return RegistrySuccess;
}

void ReadOnlyRegistry::CloseIdle() noexcept {
  if (bIdle_) registry_.CloseKey(hLast_);
  bIdle_ = false;
  hLast_ = RegistryKey::None;
}

std::int32_t ReadOnlyRegistry::CreateKey(RegistryKey /*hParent*/, const std::string& /*sPath*/,
                                         std::uint32_t /*lAccess*/, RegistryKey& /*hKey*/) {
  return RegistryAccessDenied;
}

std::int32_t ReadOnlyRegistry::SetValue(RegistryKey /*hKey*/, const std::string& /*sName*/,
                                        std::uint32_t /*lType*/, const char* /*pData*/,
                                        std::uint32_t /*lSize*/) {
  return RegistryAccessDenied;
}

std::int32_t ReadOnlyRegistry::DeleteValue(RegistryKey /*hKey*/, const std::string& /*sName*/) {
  return RegistryAccessDenied;
}

std::int32_t ReadOnlyRegistry::DeleteKey(RegistryKey /*hParent*/, const std::string& /*sName*/) {
  return RegistryAccessDenied;
}

std::unique_ptr<FileSearch> QuietSystem::Search(const std::string& sPath) {
  if (bFilesOfOthers_) return std::make_unique<AssumedFile>();
  return system_.Search(sPath);
}

MessageAnswer QuietSystem::ShowMessage(const std::string& sText, MessageIcon /*icon*/,
                                       MessageButtons /*buttons*/, const std::string& sTitle) {
  WriteErrorOutput(Utf8Of(sTitle + ": " + sText) + "\n");
  return MessageAnswer::Ok;
}

void QuietSystem::StartProgram(const std::string& sCommandLine) {
  throw PlatformError("start the program", sCommandLine, "this program starts none");
}

}  // namespace trelin
