#include "systems/windows/windows_string_library.h"

#include "systems/windows/windows_files.h"
#include "systems/windows/windows_text.h"

namespace trelin {

std::unique_ptr<InputFile> WindowsStringLibraryLoader::Open(const std::string& sPath) {
  return OpenWindowsFile(sPath);
}

std::string WindowsStringLibraryLoader::ToCodePage(const std::u16string& sText) {
  return FromWide({reinterpret_cast<const wchar_t*>(sText.data()), sText.size()});
}

}  // namespace trelin
