#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "suite/block_parser.h"
#include "suite/block_values.h"
#include "suite/installation_record.h"

namespace trelin {

// A prerequisite of a product: another product that must be installed, at
// the revision given or a higher one, with its check file in place.
//
//   BLOCK DEPENDENCY Runtime
//   PRODUCTCODE = RUNTIME          names its installation record
//   REVISION = 1.0
//   TITLE = Common Runtime         its name in the messages
//   END
class Dependency {
 public:
  static constexpr std::array<std::string_view, 3> Keys = {"PRODUCTCODE", "REVISION", "TITLE"};

  void Initialize();
  void Terminate() {}

  // Reads the rest of the block, whose start line objParser has just read. An
  // unknown key costs a beep. Throws error 5001 for a nested block.
  void LoadFromFile(BlockParser& objParser);

  // Whether the prerequisite is met. If not, LastError says why; a text from
  // an earlier check stays until ClearError.
  bool CheckDependency();

  std::string ProductCode() const { return values_["PRODUCTCODE"]; }
  std::string Revision() const { return values_["REVISION"]; }
  std::string Title() const { return values_["TITLE"]; }

  // Its installation record as it is now; nothing without records. Throws as
  // ReadInstallationRecord does.
  std::optional<InstallationRecord> Record() const {
    return ReadInstallationRecord(ProductCode(), Revision());
  }

  const std::string& LastError() const { return sLastError_; }
  void ClearError() { sLastError_.clear(); }

 private:
  void ProcessKeyValue(std::string_view sKey, std::string_view sValue);

  BlockValues<Keys> values_;
  std::string sLastError_;
};

}  // namespace trelin
