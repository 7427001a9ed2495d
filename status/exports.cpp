#include "status/exports.h"

#include <algorithm>

#include "seam/console.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "shared/arguments.h"
#include "shared/read_file.h"
#include "shared/registry_file.h"
#include "shared/start_paths.h"
#include "texts/paths.h"
#include "texts/text.h"

namespace trelin {

namespace {

constexpr std::string_view ExportEnd = ".REG";

std::vector<std::string> FilesInFolder(const std::string& sFolder) {
  std::vector<std::string> files;
  const auto search = TheSystem().Search(InFolder(sFolder, "*.reg"));
  while (const auto sName = search->Next()) files.push_back(InFolder(sFolder, *sName));
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<std::string> LinesOf(const std::string& sText) {
  std::vector<std::string> lines;
  for (std::size_t n = 0; n < sText.size();) {
    const std::size_t nEnd = std::min(sText.find('\n', n), sText.size());
    std::string sLine = sText.substr(n, nEnd - n);
    if (sLine.ends_with('\r')) sLine.pop_back();
    if (!sLine.empty()) lines.push_back(PathFromArgument(std::move(sLine)));
    n = nEnd + 1;
  }
  return lines;
}

void AddFiles(const std::string& sGiven, bool bLists, std::vector<std::string>& files) {
  if (bLists && sGiven.starts_with('@')) {
    for (const std::string& sLine : LinesOf(ReadBytes(sGiven.substr(1))))
      AddFiles(sLine, false, files);
  } else if (StartPathTests().isFolder(sGiven)) {
    const auto found = FilesInFolder(sGiven);
    files.insert(files.end(), found.begin(), found.end());
  } else {
    files.push_back(sGiven);
  }
}

void ReadBytes(const std::string& sFile, std::string& sBytes) {
  if (!ReadWholeFile(*TheSystem().OpenInput(sFile), sBytes))
    throw PlatformError("read the file", WrittenByUser(sFile), "it has more than 64 MB");
}

}  // namespace

std::vector<std::string> ExportFiles(const std::vector<std::string>& given) {
  std::vector<std::string> files;
  for (const std::string& sGiven : given) AddFiles(sGiven, true, files);
  return files;
}

std::string ReadBytes(const std::string& sFile) {
  std::string sBytes;
  ReadBytes(sFile, sBytes);
  return sBytes;
}

std::unique_ptr<RegistryNode> ReadExport(const std::string& sFile, std::string& sBytes) {
  ReadBytes(sFile, sBytes);
  return ReadRegistryText(sBytes, [&sFile] { return WrittenByUser(sFile); });
}

std::string WorkstationOf(const std::string& sFile) {
  const std::string sName = sFile.substr(sFile.find_last_of("\\/") + 1);
  const bool bNamed = sName.size() > ExportEnd.size() &&
                      UpperCase(sName.substr(sName.size() - ExportEnd.size())) == ExportEnd;
  return bNamed ? sName.substr(0, sName.size() - ExportEnd.size()) : sName;
}

}  // namespace trelin
