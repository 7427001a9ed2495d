#include "texts/installation_library.h"

#include "seam/platform.h"
#include "shared/registry_key.h"
#include "texts/paths.h"

namespace trelin {

// Not by the registry accessor: that words its failures with texts of the very
// library which is being looked for.
LibraryHandle LoadInstallationLibrary(const std::string& sFileName) {
  const KeyHandle settings =
      TryOpen(RegistryKey::LocalMachine, std::string(SuiteRoot) + "\\Tessaron\\Settings");
  if (!settings.IsOpen()) return 0;
  const std::string sFolder = ReadText(settings.Get(), "InstallDirectory") + "\\Bin";
  return TheStringLibraries().Load(InFolder(sFolder, sFileName));
}

}  // namespace trelin
