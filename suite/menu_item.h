#pragma once

#include <array>
#include <optional>
#include <string>

#include "suite/block_keys.h"
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

  const std::string& Title() const { return sTitle_; }
  const std::string& Description() const { return sDescription_; }
  const std::string& Status() const { return sStatus_; }  // a text of the string library
  const std::string& ImageFile() const { return sImageFile_; }
  const std::string& ProductCode() const { return sProductCode_; }
  const std::string& Revision() const { return sRevision_; }
  const std::string& ReadMeFile() const { return sReadMeFile_; }
  const std::string& InstallFile() const { return sInstallFile_; }

  // What the last check found; nothing without a product code or records, and before any.
  const std::optional<InstallationRecord>& Record() const { return record_; }

  const DependencyCollection& Prerequisites() const { return objDependencies_; }

  // Whether a check has ever found a higher revision than the one offered.
  bool NewerVersion() const { return bNewerVersion_; }

  // The prerequisites' last error text.
  std::string LastError() const { return objDependencies_.LastError(); }
  void ClearError() { objDependencies_.ClearError(); }

  // Whether the last check changed the status.
  bool Updated() const { return bUpdated_; }

  static const std::array<BlockKey<MenuItem>, 8> Keys;

 private:
  void ProcessKeyValue(std::string_view sKey, std::string_view sValue);

  std::string sProductCode_;
  std::string sRevision_;
  std::string sStatus_;
  std::optional<InstallationRecord> record_;
  bool bNewerVersion_ = false;
  bool bUpdated_ = false;
  std::string sTitle_;
  std::string sDescription_;
  std::string sImageFile_;
  std::string sInstallFile_;
  std::string sReadMeFile_;
  std::string sUninstallName_;
  DependencyCollection objDependencies_;
};

}  // namespace trelin
