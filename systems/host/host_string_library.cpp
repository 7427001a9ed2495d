#include "systems/host/host_string_library.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

#include "shared/code_page.h"
#include "systems/host/host_path.h"

namespace trelin {

namespace {

constexpr std::uintmax_t MaxFileSize = std::uintmax_t{64} * 1024 * 1024;

// The bytes of a normal file; nothing when it cannot be read to its end. A
// pipe is not even opened: that would wait for its writer.
std::optional<std::string> ReadFile(const std::string& sHostPath) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(sHostPath, error)) return std::nullopt;
  const std::uintmax_t nSize = std::filesystem::file_size(sHostPath, error);
  if (error || nSize > MaxFileSize) return std::nullopt;

  std::string sBytes(static_cast<std::size_t>(nSize), '\0');
  std::ifstream file(sHostPath, std::ios::binary);
  if (!file.read(sBytes.data(), static_cast<std::streamsize>(nSize))) return std::nullopt;
  return sBytes;
}

}  // namespace

LibraryHandle HostStringLibraryLoader::Load(const std::string& sPath) {
  std::optional<std::string> sFile = ReadFile(HostPath(sPath));
  if (!sFile) return 0;
  std::optional<PeStringTable> table = PeStringTable::Parse(std::move(*sFile));
  if (!table) return 0;

  libraries_.emplace(++hLast_, std::move(*table));
  return hLast_;
}

void HostStringLibraryLoader::Free(LibraryHandle hLibrary) { libraries_.erase(hLibrary); }

std::int32_t HostStringLibraryLoader::LoadText(LibraryHandle hLibrary, std::int32_t lId,
                                               char* pBuffer, std::int32_t lSize) {
  if (lSize <= 0) return 0;
  pBuffer[0] = '\0';
  const auto library = libraries_.find(hLibrary);
  if (library == libraries_.end()) return 0;
  const std::string& sText = library->second.Text(static_cast<std::uint16_t>(lId));
  const std::size_t nCount = sText.copy(pBuffer, static_cast<std::size_t>(lSize) - 1);
  pBuffer[nCount] = '\0';
  return static_cast<std::int32_t>(nCount);
}

const std::string& HostStringLibraryLoader::Library::Text(std::uint16_t nId) {
  auto text = texts.find(nId);
  if (text == texts.end()) text = texts.emplace(nId, FromUtf16(table.Text(nId))).first;
  return text->second;
}

}  // namespace trelin
