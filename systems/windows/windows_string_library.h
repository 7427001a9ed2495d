#pragma once

#include <cstdint>
#include <string>

#include "shared/library_table.h"
#include "shared/pe_string_table.h"

namespace trelin {

// Reads the string tables straight from the files. The system's own loader would open
// each file twice more, and takes the insides of a library on trust. A library is read
// once, when it is loaded, and its file closed again. Files of more than 64 MB do not load.
class WindowsStringLibraryLoader : public StringLibraryLoader {
 public:
  LibraryHandle Load(const std::string& sPath) override;
  void Free(LibraryHandle hLibrary) override { libraries_.Free(hLibrary); }

  // Of lId only the low 16 bits count, as Windows has it.
  std::int32_t LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                        std::int32_t lSize) override;

 private:
  LibraryTable<PeStringTable> libraries_;
};

}  // namespace trelin
