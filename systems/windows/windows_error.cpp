#include "systems/windows/windows_error.h"

#include <algorithm>
#include <array>

namespace trelin {

std::string SystemReason(DWORD lReason) {
  std::array<char, 512> buffer{};
  const DWORD nLength = FormatMessageA(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, lReason, 0, buffer.data(), buffer.size(), nullptr);
  const std::string sText(buffer.data(), nLength);
  const std::string sReason = sText.substr(0, sText.find_last_not_of(" .") + 1);
  return sReason.empty() ? "error " + std::to_string(lReason) : sReason;
}

PlatformError WindowsError(const std::string& sOperation, const std::string& sPath, DWORD lReason) {
  return {sOperation, sPath, SystemReason(lReason)};
}

void RefuseNul(const char* pOperation, const std::string& sPath) {
  if (sPath.find('\0') == std::string::npos) return;
  std::string sShown = sPath;
  std::replace(sShown.begin(), sShown.end(), '\0', '?');
  throw PlatformError(pOperation, sShown, "it holds a NUL character");
}

}  // namespace trelin
