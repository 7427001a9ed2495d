#include "platform/host/host_path.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "platform/code_page.h"
#include "platform/host/folder_index.h"

namespace trelin {

namespace {

bool Exists(const std::string& sHostPath) {
  std::error_code error;
  return std::filesystem::exists(std::filesystem::symlink_status(sHostPath, error));
}

}  // namespace

std::string HostPath(const std::string& sPath) {
  std::string sWritten = ToUtf8(sPath);
  std::replace(sWritten.begin(), sWritten.end(), '\\', '/');
  if (sWritten.find('\0') != std::string::npos || Exists(sWritten)) return sWritten;

  std::string sFound;
  for (std::size_t nStart = 0; nStart < sWritten.size();) {
    const std::size_t nEnd = std::min(sWritten.find('/', nStart), sWritten.size());
    std::string sName = sWritten.substr(nStart, nEnd - nStart);
    if (!sName.empty() && !Exists(sFound + sName)) {
      sName = FindFolderEntry(sFound, sName);
      if (sName.empty()) return sFound + sWritten.substr(nStart);
    }
    sFound += sName;
    sFound.append(sWritten, nEnd, 1);  // the slash, if there is one
    nStart = nEnd + 1;
  }
  return sFound;
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

void RefuseNul(const std::string& sOperation, const std::string& sPath) {
  if (sPath.find('\0') == std::string::npos) return;
  throw PlatformError(sOperation, ShownPath(HostPath(sPath)), "it holds a NUL character");
}

}  // namespace trelin
