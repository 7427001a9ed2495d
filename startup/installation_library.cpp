#include "startup/installation_library.h"

#include "platform/platform.h"
#include "products/reg_entry.h"

namespace trelin {

namespace {

bool bSearching = false;

struct SearchGuard {
  SearchGuard() { bSearching = true; }
  ~SearchGuard() { bSearching = false; }
  SearchGuard(const SearchGuard&) = delete;
  SearchGuard& operator=(const SearchGuard&) = delete;
};

std::string InstallationBinFolder() {
  RegEntry objReg;
  objReg.OpenKey("Tessaron\\Settings");
  return objReg.GetString("InstallDirectory") + "\\Bin";
}

}  // namespace

LibraryHandle LoadInstallationLibrary(const std::string& sFileName) {
  // A settings key that does not open makes the registry accessor look up the
  // text of its error, in the very library that is being searched for. That
  // inner lookup ends here.
  if (bSearching) return 0;
  const SearchGuard guard;
  try {
    return TheStringLibraries().Load(InstallationBinFolder() + "\\" + sFileName);
  } catch (...) {
    return 0;
  }
}

}  // namespace trelin
