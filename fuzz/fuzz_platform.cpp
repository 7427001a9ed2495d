#include "fuzz/fuzz_platform.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "fuzz/target.h"
#include "shared/code_page.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

constexpr LibraryHandle OnlyLibrary = 1;

class FuzzInput : public InputFile {
 public:
  FuzzInput(const ServedFile& file, int& nOpen) : file_(file), nOpen_(nOpen) { ++nOpen_; }
  ~FuzzInput() override { --nOpen_; }
  FuzzInput(const FuzzInput&) = delete;
  FuzzInput& operator=(const FuzzInput&) = delete;

  std::size_t Read(char* pBuffer, std::size_t nSize) override {
    const std::size_t nRead = file_.sBytes.copy(pBuffer, std::min(nSize, file_.nPiece), nPosition_);
    nPosition_ += nRead;
    return nRead;
  }

 private:
  const ServedFile& file_;
  int& nOpen_;
  std::size_t nPosition_ = 0;
};

class FuzzSearch : public FileSearch {
 public:
  explicit FuzzSearch(bool bFound) : bFound_(bFound) {}
  std::optional<std::string> Next() override {
    if (!std::exchange(bFound_, false)) return std::nullopt;
    return "a file";
  }

 private:
  bool bFound_;
};

}  // namespace

LibraryHandle FuzzLibraries::Load(const std::string& sPath) {
  return sPath == "C:\\Suite\\ENU35000.DLL" ? OnlyLibrary : 0;
}

void FuzzLibraries::Free(LibraryHandle hLibrary) {
  Check(hLibrary == OnlyLibrary, "only a library that was loaded is freed");
}

std::int32_t FuzzLibraries::LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                                     std::int32_t lSize) {
  Check(hLibrary == OnlyLibrary, "only a library that was loaded is asked for texts");
  const auto found = texts.find(lId);
  const std::string sText =
      found != texts.end() ? found->second : std::to_string(lId) + "(%0%|%1%|%2%|%3%)";
  const std::size_t nCount = sText.copy(pBuffer, static_cast<std::size_t>(lSize) - 1);
  pBuffer[nCount] = '\0';
  return static_cast<std::int32_t>(nCount);
}

void FuzzSystem::MakeUpperCase(std::span<char> text) { MakeUpperCase1252(text); }

std::unique_ptr<InputFile> FuzzSystem::OpenInput(const std::string&) {
  return std::make_unique<FuzzInput>(file, nOpenFiles);
}

std::unique_ptr<FileSearch> FuzzSystem::Search(const std::string& sPath) {
  return std::make_unique<FuzzSearch>(existing.contains(sPath));
}

MessageAnswer FuzzSystem::ShowMessage(const std::string& sText, MessageIcon, MessageButtons,
                                      const std::string& sTitle) {
  sShown += sTitle + ": " + sText + '\n';
  return MessageAnswer::Ok;
}

void FuzzSystem::StartProgram(const std::string&) {
  Check(false, "a program is started from the window alone");
}

FuzzPlatform::FuzzPlatform() {
  UsePlatform({&registry, &libraries, &system});
  ResetStringResources();
  InitStringResources(1033);
}

}  // namespace trelin
