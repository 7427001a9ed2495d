#include "testing/fake_platform.h"

#include <algorithm>
#include <new>
#include <ostream>

#include "seam/platform_error.h"
#include "shared/code_page.h"
#include "suite/reg_entry.h"
#include "texts/error.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

// A file or a search, which the system counts as long as it lives.
class Opened {
 public:
  Opened(FakeSystem& system, std::string sPath) : system_(system), sPath_(std::move(sPath)) {
    ++system_.nOpenFiles;
  }
  ~Opened() { --system_.nOpenFiles; }
  Opened(const Opened&) = delete;

 protected:
  FakeSystem& system_;
  const std::string sPath_;
};

class FakeInput : public InputFile, Opened {
 public:
  using Opened::Opened;

  std::size_t Read(char* pBuffer, std::size_t nSize) override {
    system_.faults.Fails("Read", sPath_, "BM");
    const std::size_t nRead = sText_.copy(pBuffer, std::min(nSize, system_.nPiece), nPosition_);
    nPosition_ += nRead;
    return nRead;
  }

 private:
  const std::string sText_ = system_.files.at(sPath_);  // as it was when it was opened
  std::size_t nPosition_ = 0;
};

class FakeSearch : public FileSearch, Opened {
 public:
  using Opened::Opened;

  std::optional<std::string> Next() override {
    if (system_.faults.Fails("Next", sPath_, "RBM")) return std::nullopt;
    return std::exchange(bFound_, false) ? std::optional("a file") : std::nullopt;
  }

 private:
  bool bFound_ = system_.files.contains(sPath_);
};

}  // namespace

bool Faults::Fails(const char* pOperation, const std::string& sArgument,
                   const std::string& sKinds) {
  if (!bCounts) return false;
  calls.push_back({pOperation, sArgument, sKinds, log.size()});
  if (nFailing == 0 || calls.size() < nFailing || sKinds.find(cKind) == std::string::npos)
    return false;
  if (calls.size() > nFailing) {
    if (reach == Reach::Nothing) return false;
    nSecondFault = std::min(nSecondFault, log.size());
  }
  if (cKind == NoMemory) throw std::bad_alloc();
  if (cKind == Broken) throw PlatformError(pOperation, sArgument, "it is broken");
  return true;
}

// The result of a call that fails; nothing when it goes on.
std::optional<std::int32_t> FakeRegistry::Fault(const char* pOperation,
                                                const std::string& sArgument,
                                                std::int32_t lRefused) {
  try {
    return faults_.Fails(pOperation, sArgument, "RBM") ? std::optional(lRefused) : std::nullopt;
  } catch (const PlatformError& error) {
    sTrouble_ = error.what();
    return RegistryUnusable;
  }
}

std::int32_t FakeRegistry::OpenKey(RegistryKey hParent, const std::string& sPath,
                                   std::uint32_t lAccess, RegistryKey& hKey) {
  if (const auto lFault = Fault("OpenKey", sPath, RegistryAccessDenied)) return *lFault;
  return MemoryRegistry::OpenKey(hParent, sPath, lAccess, hKey);
}

std::int32_t FakeRegistry::CreateKey(RegistryKey hParent, const std::string& sPath,
                                     std::uint32_t lAccess, RegistryKey& hKey) {
  if (const auto lFault = Fault("CreateKey", sPath, RegistryAccessDenied)) return *lFault;
  return MemoryRegistry::CreateKey(hParent, sPath, lAccess, hKey);
}

// The key is closed all the same.
std::int32_t FakeRegistry::CloseKey(RegistryKey hKey) noexcept {
  const std::int32_t lResult = MemoryRegistry::CloseKey(hKey);
  return faults_.Fails("CloseKey", "", "R") ? RegistryInvalidHandle : lResult;
}

std::int32_t FakeRegistry::QueryValue(RegistryKey hKey, const std::string& sName, char* pData,
                                      std::uint32_t& lSize) {
  if (const auto lFault = Fault("QueryValue", sName, RegistryMoreData)) return *lFault;
  return MemoryRegistry::QueryValue(hKey, sName, pData, lSize);
}

std::int32_t FakeRegistry::SetValue(RegistryKey hKey, const std::string& sName, std::uint32_t lType,
                                    const char* pData, std::uint32_t lSize) {
  if (const auto lFault = Fault("SetValue", sName, RegistryAccessDenied)) return *lFault;
  return MemoryRegistry::SetValue(hKey, sName, lType, pData, lSize);
}

std::int32_t FakeRegistry::DeleteValue(RegistryKey hKey, const std::string& sName) {
  if (const auto lFault = Fault("DeleteValue", sName, RegistryAccessDenied)) return *lFault;
  return MemoryRegistry::DeleteValue(hKey, sName);
}

LibraryHandle FakeLibraries::Load(const std::string& sPath) {
  loads.push_back(sPath);
  const bool bFails = faults_.Fails("Load", sPath, "RM");
  const auto file = files.find(sPath);
  if (bFails || file == files.end()) return 0;
  ++nOpen;
  loaded_.push_back(&file->second);
  return static_cast<LibraryHandle>(loaded_.size());
}

void FakeLibraries::Free(LibraryHandle hLibrary) { nOpen -= hLibrary != 0 ? 1 : 0; }

std::int32_t FakeLibraries::LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                                     std::int32_t lSize) {
  if (faults_.Fails("LoadText", std::to_string(lId), "RM")) return 0;
  const Texts& texts = *loaded_.at(static_cast<std::size_t>(hLibrary) - 1);
  const auto text = texts.find(lId);
  if (text == texts.end()) return 0;
  const std::size_t nCount = text->second.copy(pBuffer, static_cast<std::size_t>(lSize) - 1);
  pBuffer[nCount] = '\0';
  return static_cast<std::int32_t>(nCount);
}

std::string ShownMessage::Line() const {
  const int nStyle = static_cast<int>(icon) + static_cast<int>(buttons);
  return sTitle + " " + std::to_string(nStyle) + ": " + sText;
}

void PrintTo(const ShownMessage& message, std::ostream* os) { *os << message.Line(); }

std::string FakeSystem::ProgramFolder() {
  faults.Fails("ProgramFolder", "", "BM");
  return sProgramFolder;
}

std::string FakeSystem::CommandLineText() {
  faults.Fails("CommandLineText", "", "BM");
  return sCommandLine;
}

void FakeSystem::MakeUpperCase(std::span<char> text) {
  faults.Fails("MakeUpperCase", std::string(text.data(), text.size()), "M");
  MakeUpperCase1252(text);
}

std::unique_ptr<InputFile> FakeSystem::OpenInput(const std::string& sPath) {
  faults.Fails("OpenInput", sPath, "BM");
  if (!files.contains(sPath)) throw PlatformError("open the file", sPath, "there is no such file");
  return std::make_unique<FakeInput>(*this, sPath);
}

std::unique_ptr<FileSearch> FakeSystem::Search(const std::string& sPath) {
  faults.Fails("Search", sPath, "BM");
  return std::make_unique<FakeSearch>(*this, sPath);
}

void FakeSystem::Beep() {
  ++nBeeps;
  faults.log += "beep\n";
}

MessageAnswer FakeSystem::ShowMessage(const std::string& sText, MessageIcon icon,
                                      MessageButtons buttons, const std::string& sTitle) {
  faults.Fails("ShowMessage", sText, "M");
  messages.push_back({sText, icon, buttons, sTitle});
  faults.log += messages.back().Line() + "\n";
  return onMessage ? onMessage() : MessageAnswer::Ok;
}

void FakeSystem::StartProgram(const std::string& sLine) {
  faults.Fails("StartProgram", sLine, "BM");
  started.push_back(sLine);
  faults.log += "start " + sLine + "\n";
}

std::string Failure(const std::function<void()>& operation) {
  try {
    operation();
    return "none";
  } catch (const Error& error) {
    return std::to_string(error.Number()) + " " + error.Source() + " " + error.Description();
  } catch (const std::exception& error) {
    return error.what();
  }
}

FakePlatform::FakePlatform() {
  auto& texts = libraries.Own();
  const std::pair<const char*, std::vector<std::int32_t>> kinds[] = {
      {"",
       {35009, 35014, 35015, 35016, 35017, 35018, 35024, 35027, 35028, 35029, 35030, 35031, 35032}},
      {"(%0%)", {35000, 35001, 35002, 35003, 35008, 35011, 35012, 35035, 35036, 35038, 35039}},
      {"(%0%|%1%)", {35005, 35013}},
      {"(%0%|%1%|%2%)", {35037}},
      {"(%0%|%1%|%2%|%3%)", {35010}}};
  for (const auto& [sArguments, ids] : kinds)
    for (const std::int32_t lId : ids) texts[lId] = std::to_string(lId) + sArguments;
  texts[35040] = "2";
  texts[35041] = "First line";
  texts[35042] = "Second line";
  ResetStringResources();
  InitStringResources(1033);
}

void FakePlatform::Record(const std::string& sName, const std::string& sText) {
  RegEntry objReg;
  objReg.CreateKey("InstallLog");
  objReg.SetString(sName, sText);
}

}  // namespace trelin
