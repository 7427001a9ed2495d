#include "systems/windows/windows_string_library.h"

#include <optional>
#include <utility>

#include "seam/platform_error.h"
#include "shared/pe_string_table.h"
#include "shared/read_file.h"
#include "systems/windows/windows_files.h"

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

// The system takes the insides of a library on trust when it looks for a text.
bool IsSound(const std::string& sPath) {
  try {
    std::optional<std::string> sFile = ReadWholeFile(*OpenWindowsFile(sPath));
    return sFile && PeStringTable::Parse(std::move(*sFile));
  } catch (const PlatformError&) {
    return false;  // not there, or not to be read
  }
}

}  // namespace

LibraryHandle WindowsStringLibraryLoader::Load(const std::string& sPath) {
  const std::string sFull = FullPath(sPath);
  if (sFull.empty() || !IsSound(sFull)) return 0;
  ModuleOwner module(LoadLibraryExA(
      sFull.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE_EXCLUSIVE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
  return module ? libraries_.Keep(std::move(module)) : 0;
}

std::int32_t WindowsStringLibraryLoader::LoadText(LibraryHandle hLibrary, std::int32_t lId,
                                                  char* pBuffer, std::int32_t lSize) {
  if (const ModuleOwner* pModule = libraries_.Begin(hLibrary, pBuffer, lSize))
    return LoadStringA(pModule->get(), static_cast<std::uint16_t>(lId), pBuffer, lSize);
  return 0;
}

}  // namespace trelin
