#include "tests/fake_platform.h"

#include <algorithm>
#include <cstring>

#include "platform/code_page.h"
#include "platform/platform_error.h"
#include "products/reg_entry.h"
#include "startup/error.h"
#include "startup/string_resources.h"

namespace trelin {

namespace {

class FakeInput : public InputFile {
 public:
  FakeInput(std::string sText, int& nOpen) : sText_(std::move(sText)), nOpen_(nOpen) { ++nOpen_; }
  ~FakeInput() override { --nOpen_; }

  std::size_t Read(char* pBuffer, std::size_t nSize) override {
    const std::size_t nRead = sText_.copy(pBuffer, nSize, nPosition_);
    nPosition_ += nRead;
    return nRead;
  }

 private:
  std::string sText_;
  int& nOpen_;
  std::size_t nPosition_ = 0;
};

class FakeSearch : public FileSearch {
 public:
  explicit FakeSearch(bool bFound) : bFound_(bFound) {}
  std::optional<std::string> Next() override {
    if (!std::exchange(bFound_, false)) return std::nullopt;
    return "a file";
  }

 private:
  bool bFound_;
};

}  // namespace

LibraryHandle FakeLibraries::Load(const std::string& sPath) {
  loads.push_back(sPath);
  const auto file = files.find(sPath);
  if (file == files.end()) return 0;
  loaded_.push_back(&file->second);
  return static_cast<LibraryHandle>(loaded_.size());
}

void FakeLibraries::Free(LibraryHandle) { ++nFreed; }

std::int32_t FakeLibraries::LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                                     std::int32_t lSize) {
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

void FakeSystem::MakeUpperCase(std::string& sText) { sText = UpperCase1252(sText); }

std::unique_ptr<InputFile> FakeSystem::OpenInput(const std::string& sPath) {
  const auto file = files.find(sPath);
  if (file == files.end()) throw PlatformError("open the file", sPath, "there is no such file");
  return std::make_unique<FakeInput>(file->second, nOpenFiles);
}

std::unique_ptr<FileSearch> FakeSystem::Search(const std::string& sPath) {
  if (sPath.starts_with('?')) throw PlatformError("search", sPath, "the drive is not ready");
  return std::make_unique<FakeSearch>(files.contains(sPath));
}

MessageAnswer FakeSystem::ShowMessage(const std::string& sText, MessageIcon icon,
                                      MessageButtons buttons, const std::string& sTitle) {
  messages.push_back({sText, icon, buttons, sTitle});
  return onMessage ? onMessage() : MessageAnswer::Ok;
}

void FakeSystem::StartProgram(const std::string& sLine) {
  if (!sStartFailure.empty()) throw PlatformError("start the program", sLine, sStartFailure);
  started.push_back(sLine);
}

std::string Failure(const std::function<void()>& operation) {
  try {
    operation();
    return "none";
  } catch (const Error& error) {
    return std::to_string(error.Number()) + " " + error.Source() + " " + error.Description();
  }
}

FakeProgram::FakeProgram() {
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
  libraries.files["C:\\Suite\\ENU35000.DLL"] = texts;

  UsePlatform({&registry, &libraries, &system});
  ResetStringResources();
  InitStringResources(1033);
}

void FakeProgram::Record(const std::string& sName, const std::string& sText) {
  RegEntry objReg;
  objReg.CreateKey("InstallLog");
  objReg.SetString(sName, sText);
}

}  // namespace trelin
