#pragma once

#include <array>
#include <optional>
#include <string>

#include "suite/block_keys.h"
#include "suite/block_parser.h"
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
  void Initialize();
  void Terminate() {}

  // Reads the rest of the block, whose start line objParser has just read. An
  // unknown key costs a beep. Throws error 5001 for a nested block.
  void LoadFromFile(BlockParser& objParser);

  // Whether the prerequisite is met. If not, LastError says why; a text from
  // an earlier check stays until ClearError.
  bool CheckDependency();

  const std::string& ProductCode() const { return sProductCode_; }
  const std::string& Revision() const { return sRevision_; }
  const std::string& Title() const { return sTitle_; }
  // What the last check found.
  const std::optional<InstallationRecord>& Record() const { return record_; }

  const std::string& LastError() const { return sLastError_; }
  void ClearError() { sLastError_.clear(); }

  static const std::array<BlockKey<Dependency>, 3> Keys;

 private:
  void ProcessKeyValue(std::string_view sKey, std::string_view sValue);

  std::string sProductCode_;
  std::string sRevision_;
  std::string sTitle_;
  std::string sLastError_;
  std::optional<InstallationRecord> record_;
};

}  // namespace trelin
