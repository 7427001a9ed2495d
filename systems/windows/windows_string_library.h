#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

#include "shared/library_table.h"

namespace trelin {

struct ModuleCloser {
  void operator()(HMODULE hModule) const { FreeLibrary(hModule); }
};
using ModuleOwner = std::unique_ptr<HINSTANCE__, ModuleCloser>;

// Has the system load the libraries as data: nothing in them runs, whatever
// processor they are for. The file of a loaded library stays open.
class WindowsStringLibraryLoader : public StringLibraryLoader {
 public:
  LibraryHandle Load(const std::string& sPath) override;
  void Free(LibraryHandle hLibrary) override { libraries_.Free(hLibrary); }

  // Of lId only the low 16 bits count, as Windows has it.
  std::int32_t LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                        std::int32_t lSize) override;

 private:
  LibraryTable<ModuleOwner> libraries_;
};

}  // namespace trelin
