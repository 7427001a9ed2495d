#pragma once

#include <memory>
#include <string>

namespace trelin {

constexpr const char* SuiteLibraryName = "ENU35000.DLL";

// The launcher's texts for a program beside it, in use as long as this lives: those of
// the string library in the suite's folder, as the launcher there has them. When there
// is none that loads, the program's own library serves.
class SuiteTexts {
 public:
  // sProgram: the name of the program, for the error. Throws PlatformError when neither
  // library is there.
  SuiteTexts(const std::string& sFolder, const std::string& sProgram);
  ~SuiteTexts();
  SuiteTexts(const SuiteTexts&) = delete;
  SuiteTexts& operator=(const SuiteTexts&) = delete;

 private:
  class Libraries;
  std::unique_ptr<Libraries> libraries_;
};

}  // namespace trelin
