#include "systems/host/host_string_library.h"

#include <optional>

#include "seam/platform_error.h"
#include "shared/code_page.h"
#include "shared/read_file.h"
#include "systems/host/host_files.h"

namespace trelin {

namespace {

std::optional<PeStringTable> ReadTable(const std::string& sPath) {
  try {
    std::optional<std::string> sFile = ReadWholeFile(*OpenHostFile(sPath, HostFileKinds::Regular));
    return sFile ? PeStringTable::Parse(std::move(*sFile)) : std::nullopt;
  } catch (const PlatformError&) {
    return std::nullopt;  // not to be read
  }
}

}  // namespace

LibraryHandle HostStringLibraryLoader::Load(const std::string& sPath) {
  std::optional<PeStringTable> table = ReadTable(sPath);
  return table ? libraries_.Keep(HostLibrary(std::move(*table))) : 0;
}

std::int32_t HostStringLibraryLoader::LoadText(LibraryHandle hLibrary, std::int32_t lId,
                                               char* pBuffer, std::int32_t lSize) {
  HostLibrary* const pLibrary = libraries_.Begin(hLibrary, pBuffer, lSize);
  if (pLibrary == nullptr) return 0;
  const auto nId = static_cast<std::uint16_t>(lId);
  const auto [text, bNew] = pLibrary->texts.try_emplace(nId);
  if (bNew) text->second = FromUtf16(pLibrary->table.Text(nId));
  const std::size_t nCount = text->second.copy(pBuffer, static_cast<std::size_t>(lSize) - 1);
  pBuffer[nCount] = '\0';
  return static_cast<std::int32_t>(nCount);
}

}  // namespace trelin
