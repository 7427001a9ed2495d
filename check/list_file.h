#pragma once

#include <memory>
#include <string>

#include "check/checks.h"

namespace trelin {

// A path as the user writes it, without a "./" that says nothing.
std::string ShownToUser(const std::string& sPath);

// The setup list that trelin-check is asked about.
class ListFile {
 public:
  // A folder with a TRELIN.CFG, the list itself, or "-" for the standard input and a
  // suite in the current folder.
  explicit ListFile(const std::string& sPath);

  const std::string& Path() const { return sPath_; }
  std::string Folder() const;
  std::string Name() const;   // without the folder
  std::string Shown() const;  // as the user writes it

  // Throws PlatformError. The standard input can be read once.
  std::unique_ptr<InputFile> Open() const;
  std::string Bytes() const;

  // The suite around the list, which is not read yet but for its name. Installers are
  // in sSourceFolder, or where the list is when that is empty.
  Suite SuiteAround(const std::string& sSourceFolder) const;

 private:
  bool IsStandardInput() const { return sPath_ == "-"; }

  std::string sPath_;
};

}  // namespace trelin
