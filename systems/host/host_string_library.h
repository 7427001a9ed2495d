#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>

#include "shared/library_table.h"
#include "shared/pe_string_table.h"

namespace trelin {

// A string table, and the texts that were asked for, converted.
struct HostLibrary {
  explicit HostLibrary(PeStringTable t) : table(std::move(t)) {}

  PeStringTable table;
  std::unordered_map<std::uint16_t, std::string> texts;
};

// Reads the string tables of the Windows libraries straight from their files.
// A library is read once, when it is loaded, and its file closed again. Files
// of more than 64 MB do not load.
class HostStringLibraryLoader : public StringLibraryLoader {
 public:
  LibraryHandle Load(const std::string& sPath) override;
  void Free(LibraryHandle hLibrary) override { libraries_.Free(hLibrary); }

  // Of lId only the low 16 bits count, as Windows has it.
  std::int32_t LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                        std::int32_t lSize) override;

 private:
  LibraryTable<HostLibrary> libraries_;
};

}  // namespace trelin
