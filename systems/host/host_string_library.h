#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>

#include "seam/string_library.h"
#include "shared/pe_string_table.h"

namespace trelin {

// Reads the string tables of the Windows libraries straight from their files.
// A library is read once, when it is loaded, and its file closed again. Files
// of more than 64 MB do not load.
class HostStringLibraryLoader : public StringLibraryLoader {
 public:
  LibraryHandle Load(const std::string& sPath) override;
  void Free(LibraryHandle hLibrary) override;

  // As on Windows, only the low 16 bits of lId count.
  std::int32_t LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                        std::int32_t lSize) override;

 private:
  struct Library {
    explicit Library(PeStringTable t) : table(std::move(t)) {}

    const std::string& Text(std::uint16_t nId);

    PeStringTable table;
    std::unordered_map<std::uint16_t, std::string> texts;  // what was asked for, converted
  };

  LibraryHandle hLast_ = 0;  // no handle is given out twice
  std::map<LibraryHandle, Library> libraries_;
};

}  // namespace trelin
