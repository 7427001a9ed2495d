#include "testing/fake_platform.h"

#include <algorithm>
#include <cstring>

#include "seam/platform_error.h"
#include "shared/code_page.h"
#include "suite/reg_entry.h"
#include "texts/error.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

// Counts what is open as long as it lives.
std::shared_ptr<int> Opened(int& nOpen) {
  ++nOpen;
  return {&nOpen, [](int* pOpen) { --*pOpen; }};
}

class FakeInput : public InputFile {
 public:
  FakeInput(std::string sPath, const std::string& sText, std::size_t nPiece, int& nOpen,
            Faults& faults)
      : sPath_(std::move(sPath)),
        sText_(sText),
        nPiece_(nPiece),
        opened_(Opened(nOpen)),
        faults_(faults) {}

  std::size_t Read(char* pBuffer, std::size_t nSize) override {
    faults_.Fails("Read", sPath_, "BM");
    const std::size_t nRead = sText_.copy(pBuffer, std::min(nSize, nPiece_), nPosition_);
    nPosition_ += nRead;
    return nRead;
  }

 private:
  std::string sPath_;
  std::string sText_;  // as it was when it was opened
  std::size_t nPiece_;
  std::shared_ptr<int> opened_;
  Faults& faults_;
  std::size_t nPosition_ = 0;
};

class FakeSearch : public FileSearch {
 public:
  FakeSearch(std::string sPath, bool bFound, int& nOpen, Faults& faults)
      : sPath_(std::move(sPath)), bFound_(bFound), opened_(Opened(nOpen)), faults_(faults) {}

  std::optional<std::string> Next() override {
    if (faults_.Fails("Next", sPath_, "RBM") || !std::exchange(bFound_, false)) return std::nullopt;
    return "a file";
  }

 private:
  std::string sPath_;
  bool bFound_;
  std::shared_ptr<int> opened_;
  Faults& faults_;
};

}  // namespace

// The result of a call that fails; nothing when it goes on.
std::optional<std::int32_t> FakeRegistry::Fault(const std::string& sOperation,
                                                const std::string& sArgument,
                                                std::int32_t lRefused) {
  try {
    return faults_.Fails(sOperation, sArgument, "RBM") ? std::optional(lRefused) : std::nullopt;
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

void PrintTo(const ShownMessage& message, std::ostream* os) {
  *os << "\"" << message.sText << "\", icon " << static_cast<int>(message.icon) << ", buttons "
      << static_cast<int>(message.buttons) << ", title \"" << message.sTitle << "\"";
}

std::string FakeSystem::ProgramFolder() {
  faults_.Fails("ProgramFolder", "", "BM");
  return sProgramFolder;
}

std::string FakeSystem::CommandLineText() {
  faults_.Fails("CommandLineText", "", "BM");
  return sCommandLine;
}

void FakeSystem::MakeUpperCase(std::span<char> text) {
  faults_.Fails("MakeUpperCase", std::string(text.data(), text.size()), "M");
  MakeUpperCase1252(text);
}

std::unique_ptr<InputFile> FakeSystem::OpenInput(const std::string& sPath) {
  faults_.Fails("OpenInput", sPath, "BM");
  const auto file = files.find(sPath);
  if (file == files.end()) throw PlatformError("open the file", sPath, "there is no such file");
  return std::make_unique<FakeInput>(sPath, file->second, nPiece, nOpenFiles, faults_);
}

std::unique_ptr<FileSearch> FakeSystem::Search(const std::string& sPath) {
  faults_.Fails("Search", sPath, "BM");
  return std::make_unique<FakeSearch>(sPath, files.contains(sPath), nOpenFiles, faults_);
}

void FakeSystem::Beep() {
  ++nBeeps;
  faults_.log += "beep\n";
}

MessageAnswer FakeSystem::ShowMessage(const std::string& sText, MessageIcon icon,
                                      MessageButtons buttons, const std::string& sTitle) {
  faults_.Fails("ShowMessage", sText, "M");
  messages.push_back({sText, icon, buttons, sTitle});
  const int nStyle = static_cast<int>(icon) + static_cast<int>(buttons);
  faults_.log += sTitle + " " + std::to_string(nStyle) + ": " + sText + "\n";
  return onMessage ? onMessage() : MessageAnswer::Ok;
}

void FakeSystem::StartProgram(const std::string& sLine) {
  faults_.Fails("StartProgram", sLine, "BM");
  started.push_back(sLine);
  faults_.log += "start " + sLine + "\n";
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
  FakeLibraries::Texts texts;
  for (const std::int32_t lId :
       {35009, 35014, 35015, 35016, 35017, 35018, 35024, 35027, 35028, 35029, 35030, 35031, 35032})
    texts[lId] = std::to_string(lId);
  for (const std::int32_t lId :
       {35000, 35001, 35002, 35003, 35008, 35011, 35012, 35035, 35036, 35038, 35039})
    texts[lId] = std::to_string(lId) + "(%0%)";
  for (const std::int32_t lId : {35005, 35013}) texts[lId] = std::to_string(lId) + "(%0%|%1%)";
  texts[35010] = "35010(%0%|%1%|%2%|%3%)";
  texts[35037] = "35037(%0%|%1%|%2%)";
  texts[35040] = "2";
  texts[35041] = "First line";
  texts[35042] = "Second line";
  libraries.Own() = texts;

  ResetStringResources();
  InitStringResources(1033);
}

void FakePlatform::Record(const std::string& sName, const std::string& sText) {
  RegEntry objReg;
  objReg.CreateKey("InstallLog");
  objReg.SetString(sName, sText);
}

}  // namespace trelin
