#include "texts/paths.h"

#include "seam/platform.h"
#include "texts/text.h"

namespace trelin {

std::string InFolder(const std::string& sFolder, const std::string& sFile) {
  return sFolder + (sFolder.ends_with('\\') ? "" : "\\") + sFile;
}

std::string ProgramFile(const std::string& sFile) {
  return InFolder(TheSystem().ProgramFolder(), sFile);
}

std::string JoinPath(const std::string& sFolder, const std::string& sFile) {
  std::string sPath(TrimSpaces(sFolder));
  AddBackslash(sPath);
  return sPath.append(TrimSpaces(sFile));
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
