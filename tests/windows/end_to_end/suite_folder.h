#pragma once

#include <filesystem>
#include <string>

namespace end_to_end {

// A suite laid out in a new folder, with its records in the registry; the
// programs are those beside this one. The folder goes with the object.
class SuiteFolder {
 public:
  SuiteFolder();
  ~SuiteFolder();
  SuiteFolder(const SuiteFolder&) = delete;
  SuiteFolder& operator=(const SuiteFolder&) = delete;

  std::filesystem::path operator/(const std::string& sName) const { return folder_ / sName; }
  void Write(const std::string& sName, const std::string& sText) const;
  std::string Read(const std::string& sName) const;

 private:
  explicit SuiteFolder(const std::filesystem::path& folder);  // an empty one
  void PutPrograms() const;
  void PutRecords() const;

  std::filesystem::path folder_;
};

}  // namespace end_to_end
