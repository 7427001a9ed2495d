#include "check/list_file.h"

#include "seam/console.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "shared/read_file.h"
#include "texts/paths.h"

namespace trelin {

namespace {

constexpr const char* StandardInputName = "<stdin>";

}  // namespace

std::string ShownToUser(const std::string& sPath) {
  return WrittenByUser(sPath.starts_with(".\\") ? sPath.substr(2) : sPath);
}

ListFile::ListFile(const std::string& sPath) : sPath_(SetupListIn(sPath)) {}

std::string ListFile::Folder() const { return FolderOf(sPath_); }

std::string ListFile::Name() const {
  return IsStandardInput() ? StandardInputName : sPath_.substr(sPath_.find_last_of("\\/") + 1);
}

std::string ListFile::Shown() const {
  return IsStandardInput() ? StandardInputName : ShownToUser(sPath_);
}

std::unique_ptr<InputFile> ListFile::Open() const {
  return IsStandardInput() ? OpenStandardInput() : TheSystem().OpenInput(sPath_);
}

std::string ListFile::Bytes() const {
  auto sBytes = ReadWholeFile(*Open());
  if (!sBytes) throw PlatformError("read the setup list", Shown(), "it has more than 64 MB");
  return std::move(*sBytes);
}

Suite ListFile::SuiteAround(const std::string& sSourceFolder) const {
  Suite suite;
  suite.list.sName = Name();
  suite.sFolder = Folder();
  suite.sSourceFolder = sSourceFolder.empty() ? suite.sFolder : sSourceFolder;
  return suite;
}

}  // namespace trelin
