#include "texts/installation_library.h"

#include "seam/platform.h"
#include "suite/reg_entry.h"

namespace trelin {

LibraryHandle LoadInstallationLibrary(const std::string& sFileName) {
  RegEntry objReg;
  if (!objReg.TryOpenKey("Tessaron\\Settings")) return 0;
  return TheStringLibraries().Load(objReg.GetString("InstallDirectory") + "\\Bin\\" + sFileName);
}

}  // namespace trelin
