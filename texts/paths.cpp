#include "texts/paths.h"

#include "seam/platform.h"
#include "shared/start_paths.h"
#include "texts/text.h"

namespace trelin {

std::string InFolder(const std::string& sFolder, const std::string& sFile) {
  return sFolder + (sFolder.ends_with('\\') ? "" : "\\") + sFile;
}

std::string ProgramFile(const std::string& sFile) {
  return InFolder(TheSystem().ProgramFolder(), sFile);
}

std::string FolderOf(const std::string& sFile) {
  const std::size_t nName = sFile.rfind('\\');
  return nName == std::string::npos ? "." : sFile.substr(0, nName + 1);
}

std::string SetupListIn(const std::string& sPath) {
  return StartPathTests().isFolder(sPath) ? InFolder(sPath, "TRELIN.CFG") : sPath;
}

std::string JoinPath(const std::string& sFolder, const std::string& sFile) {
  std::string sPath(TrimSpaces(sFolder));
  AddBackslash(sPath);
  sPath += TrimSpaces(sFile);
  return sPath;
}

void AddBackslash(std::string& sFolder) {
  const std::string_view sTrimmed = TrimRight(sFolder);
  if (sTrimmed.ends_with('\\')) return;
  sFolder.resize(sTrimmed.size());
  sFolder += '\\';
}

bool FileExists(const std::string& sPath) {
  try {
    const auto search = TheSystem().Search(sPath);
    const bool bFound = search->Next().has_value();
    while (search->Next()) {
      // Some systems keep a search open until its last name was read.
    }
    return bFound;
  } catch (...) {
    return false;
  }
}

}  // namespace trelin
