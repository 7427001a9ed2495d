#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>

#include "seam/string_library.h"
#include "seam/system.h"
#include "shared/pe_string_table.h"

namespace trelin {

// Reads the string tables of the libraries straight from their files, alike on each
// system: Windows' own loader would open a file twice more, and takes the insides of a
// library on trust. A library is read once, when it is loaded, and its file closed again;
// each text is converted once. Files of more than 64 MB do not load.
class StringTables : public StringLibraryLoader {
 public:
  LibraryHandle Load(const std::string& sPath) override;
  void Free(LibraryHandle hLibrary) override { libraries_.erase(hLibrary); }

  // Of lId only the low 16 bits count, as Windows has it.
  std::int32_t LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                        std::int32_t lSize) override;

 private:
  struct Library {
    PeStringTable table;
    std::unordered_map<std::uint16_t, std::string> texts;  // those that were asked for
  };

  // The file of a library. Throws PlatformError when it does not open.
  virtual std::unique_ptr<InputFile> Open(const std::string& sPath) = 0;

  virtual std::string ToCodePage(const std::u16string& sText) = 0;

  const std::string& Text(Library& library, std::uint16_t nId);

  LibraryHandle hLast_ = 0;  // no handle is given out twice
  std::map<LibraryHandle, Library> libraries_;
};

}  // namespace trelin
