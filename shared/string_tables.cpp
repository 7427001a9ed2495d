#include "shared/string_tables.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "seam/platform_error.h"
#include "shared/read_file.h"

namespace trelin {

LibraryHandle StringTables::Load(const std::string& sPath) try {
  std::optional<std::string> sFile = ReadWholeFile(*Open(sPath));
  if (!sFile) return 0;
  std::optional<PeStringTable> table = PeStringTable::Parse(std::move(*sFile));
  if (!table) return 0;
  libraries_.emplace(++hLast_, Library{std::move(*table), {}});
  return hLast_;
} catch (const PlatformError&) {
  return 0;  // not there, or not to be read
}

std::int32_t StringTables::LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                                    std::int32_t lSize) {
  if (lSize <= 0) return 0;
  std::string_view sText;
  if (const auto library = libraries_.find(hLibrary); library != libraries_.end())
    sText = Text(library->second, static_cast<std::uint16_t>(lId));
  const std::size_t nCount = sText.copy(pBuffer, static_cast<std::size_t>(lSize) - 1);
  pBuffer[nCount] = '\0';
  return static_cast<std::int32_t>(nCount);
}

const std::string& StringTables::Text(Library& library, std::uint16_t nId) {
  const auto [text, bNew] = library.texts.try_emplace(nId);
  if (bNew) text->second = ToCodePage(library.table.Text(nId));
  return text->second;
}

}  // namespace trelin
