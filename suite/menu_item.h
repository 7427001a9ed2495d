#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "suite/block_values.h"
#include "suite/dependency.h"
#include "suite/installation_record.h"
#include "suite/item_collection.h"
#include "texts/text_number.h"

namespace trelin {

using DependencyCollection = ItemCollection<Dependency>;

// The number of the menu's words for a state.
TextNumber StatusText(ProductState state);

// A product of the setup list: what its block says, its prerequisites, and
// its installation state as the last check found it.
//
//   BLOCK APPLICATION Inspect
//   PRODUCT = Inspection Station
//   DESCRIPTION = Measures parts against their drawings
//   IMAGE = inspect.bmp              in the program's folder
//   PRODUCTCODE = INSPECT            names its installation record
//   REVISION = 2.1                   the revision offered
//   UNINSTALLNAME = Inspection
//   INSTALLFILE = inspect.exe        in the source folder
//   READMEFILE = readme.exe          in the program's folder
//   BLOCK DEPENDENCY Runtime         a prerequisite, see Dependency
//   ...
//   END
//   END
class MenuItem {
 public:
  static constexpr std::array<std::string_view, 8> Keys = {
      "PRODUCT",  "DESCRIPTION",   "IMAGE",       "PRODUCTCODE",
      "REVISION", "UNINSTALLNAME", "INSTALLFILE", "READMEFILE"};

  void Initialize();
  void Terminate();

  // Reads the rest of the block, whose start line objParser has just read. An
  // unknown key costs a beep. Throws error 5001 for a nested block that is no
  // prerequisite.
  void LoadFromFile(BlockParser& objParser);

  // Works out the status from the installation record and the file system,
  // afresh. Throws as ReadInstallationRecord does, and then nothing changes.
  void CheckInstallation();

  // Whether every prerequisite is met; ends at the first that is not and
  // leaves its reason in LastError.
  bool CheckDependencies();

  std::string Title() const { return values_["PRODUCT"]; }
  std::string Description() const { return values_["DESCRIPTION"]; }
  const std::string& Status() const { return sStatus_; }  // a text of the string library
  std::string ImageFile() const { return values_["IMAGE"]; }
  std::string ProductCode() const { return values_["PRODUCTCODE"]; }
  std::string Revision() const { return values_["REVISION"]; }
  std::string ReadMeFile() const { return values_["READMEFILE"]; }
  std::string InstallFile() const { return values_["INSTALLFILE"]; }

  // Its installation record as it is now; nothing without a product code or records. Throws
  // as ReadInstallationRecord does.
  std::optional<InstallationRecord> Record() const;

  const DependencyCollection& Prerequisites() const { return objDependencies_; }

  // Whether a check has ever found a higher revision than the one offered.
  bool NewerVersion() const { return bNewerVersion_; }

  // The prerequisites' last error text.
  std::string LastError() const { return objDependencies_.LastError(); }
  void ClearError() { objDependencies_.ClearError(); }

  // Whether the last check changed the status.
  bool Updated() const { return bUpdated_; }

 private:
  void ProcessKeyValue(std::string_view sKey, std::string_view sValue);

  BlockValues<Keys> values_;
  std::string sStatus_;
  bool bNewerVersion_ = false;
  bool bUpdated_ = false;
  DependencyCollection objDependencies_;
};

}  // namespace trelin
