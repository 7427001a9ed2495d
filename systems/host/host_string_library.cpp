#include "systems/host/host_string_library.h"

#include "shared/code_page.h"
#include "systems/host/host_files.h"

namespace trelin {

std::unique_ptr<InputFile> HostStringLibraryLoader::Open(const std::string& sPath) {
  return OpenHostFile(sPath, HostFileKinds::Regular);
}

std::string HostStringLibraryLoader::ToCodePage(const std::u16string& sText) {
  return FromUtf16(sText);
}

}  // namespace trelin
