#include "systems/windows/windows_string_library.h"

#include <windows.h>

#include <optional>
#include <utility>

#include "seam/platform_error.h"
#include "shared/read_file.h"
#include "systems/windows/windows_files.h"
#include "systems/windows/windows_text.h"

namespace trelin {

namespace {

// The system would look for a path that is not full in folders of its own
// choice. Empty when sPath is no path or a longer one than the system takes.
std::string FullPath(const std::string& sPath) {
  std::string sFull(MAX_PATH, '\0');
  const auto nSize = static_cast<DWORD>(sFull.size());
  const DWORD nLength = GetFullPathNameA(sPath.c_str(), nSize, sFull.data(), nullptr);
  sFull.resize(nLength < nSize ? nLength : 0);
  return sFull;
}

std::optional<PeStringTable> ReadTable(const std::string& sPath) {
  try {
    std::optional<std::string> sFile = ReadWholeFile(*OpenWindowsFile(sPath));
    return sFile ? PeStringTable::Parse(std::move(*sFile)) : std::nullopt;
  } catch (const PlatformError&) {
    return std::nullopt;  // not there, or not to be read
  }
}

std::string FromUnits(const std::u16string& sText) {
  return FromWide({reinterpret_cast<const wchar_t*>(sText.data()), sText.size()});
}

}  // namespace

LibraryHandle WindowsStringLibraryLoader::Load(const std::string& sPath) {
  const std::string sFull = FullPath(sPath);
  if (sFull.empty()) return 0;
  std::optional<PeStringTable> table = ReadTable(sFull);
  return table ? libraries_.Keep(std::move(*table)) : 0;
}

std::int32_t WindowsStringLibraryLoader::LoadText(LibraryHandle hLibrary, std::int32_t lId,
                                                  char* pBuffer, std::int32_t lSize) {
  const PeStringTable* const pTable = libraries_.Begin(hLibrary, pBuffer, lSize);
  if (pTable == nullptr) return 0;
  const std::string sText = FromUnits(pTable->Text(static_cast<std::uint16_t>(lId)));
  const std::size_t nCount = sText.copy(pBuffer, static_cast<std::size_t>(lSize) - 1);
  pBuffer[nCount] = '\0';
  return static_cast<std::int32_t>(nCount);
}

}  // namespace trelin
