#include "systems/host/host_path.h"

#include <sys/stat.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <optional>

#include "shared/code_page.h"
#include "systems/host/folder_index.h"

namespace trelin {

namespace {

bool Exists(const std::string& sHostPath) {
  struct stat status {};
  return lstat(sHostPath.c_str(), &status) == 0;
}

std::string FindPath(const std::string& sWritten);

// sWritten has slashes and is not there. Goes up only as far as the folders are not
// there as they are written.
std::string FindInOtherCase(const std::string& sWritten) {
  const std::size_t nEnd = sWritten.find_last_not_of('/') + 1;  // before trailing slashes
  if (nEnd == 0) return sWritten;
  const std::size_t nName = sWritten.rfind('/', nEnd - 1) + 1;
  const std::string sName = sWritten.substr(nName, nEnd - nName);
  std::string sFolder = sWritten.substr(0, nName);
  std::optional<std::string> sEntry = FindFolderEntry(sFolder, sName);
  if (!sEntry) {
    sFolder = FindPath(sFolder);
    sEntry = Exists(sFolder + sName) ? sName : FindFolderEntry(sFolder, sName);
  }
  return sFolder + sEntry.value_or(sName) + sWritten.substr(nEnd);
}

std::string FindPath(const std::string& sWritten) {
  return Exists(sWritten) ? sWritten : FindInOtherCase(sWritten);
}

// Not cut at a NUL character, and not too long for the system.
bool IsNameable(const std::string& sWritten) {
  return sWritten.size() < PATH_MAX && sWritten.find('\0') == std::string::npos;
}

}  // namespace

std::string WrittenPath(std::string_view sPath) {
  std::string sWritten = ToUtf8(sPath);
  std::replace(sWritten.begin(), sWritten.end(), '\\', '/');
  return sWritten;
}

std::string HostPath(const std::string& sPath) {
  const std::string sWritten = WrittenPath(sPath);
  return IsNameable(sWritten) ? FindPath(sWritten) : sWritten;
}

std::string PathInOtherCase(const std::string& sWritten) {
  return IsNameable(sWritten) ? FindInOtherCase(sWritten) : sWritten;
}

std::string ProgramPath(const std::string& sHostPath) {
  std::string sPath = FromUtf8(sHostPath);
  std::replace(sPath.begin(), sPath.end(), '/', '\\');
  return sPath;
}

std::string ShownPath(const std::string& sHostPath) {
  std::string sShown = FromUtf8(sHostPath);
  std::replace(sShown.begin(), sShown.end(), '\0', '?');
  return sShown;
}

std::string SystemReason(int lReason) {
  // Unlike strerror, it does not follow the locale: it would answer in UTF-8.
  const char* pText = strerrordesc_np(lReason);
  return pText != nullptr ? pText : "error " + std::to_string(lReason);
}

PlatformError HostError(const std::string& sOperation, const std::string& sHostPath, int lReason) {
  return {sOperation, ShownPath(sHostPath), SystemReason(lReason)};
}

void RefuseNul(const char* pOperation, const std::string& sPath) {
  if (sPath.find('\0') == std::string::npos) return;
  throw PlatformError(pOperation, ShownPath(HostPath(sPath)), "it holds a NUL character");
}

}  // namespace trelin
