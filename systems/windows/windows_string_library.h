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
class WindowsStringLibraryLoader : public LibraryTable<ModuleOwner> {
 public:
  LibraryHandle Load(const std::string& sPath) override;

 protected:
  std::int32_t CopyText(ModuleOwner& module, std::uint16_t nId, char* pBuffer,
                        std::int32_t lSize) override;
};

}  // namespace trelin
