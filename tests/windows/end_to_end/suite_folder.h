#pragma once

#include <filesystem>
#include <string>

namespace end_to_end {

// A suite laid out in a new folder, with its records in the registry; its installer
// is in the folder "Disc 1" within. The programs are those beside this one. Folder
// and records go with the object.
class SuiteFolder {
 public:
  SuiteFolder();
  ~SuiteFolder();
  SuiteFolder(const SuiteFolder&) = delete;
  SuiteFolder& operator=(const SuiteFolder&) = delete;

  std::filesystem::path operator/(const std::string& sName) const { return folder_ / sName; }

  // What the launcher and its installers have written into the registry.
  static std::string Notice(const std::string& sName);
  static std::string Record(const std::string& sName);

 private:
  void Write(const std::string& sName, const std::string& sText) const;

  std::filesystem::path folder_;
};

}  // namespace end_to_end
