#pragma once

#include "seam/system.h"

namespace trelin {

// The full path of the running program; a character that the ANSI code page
// lacks is replaced.
std::string RunningProgram();

// A path in the ANSI code page. Where that lacks a letter, as perhaps of the user's name,
// the short names that the system may have given to files and folders take the place of
// theirs. Empty when there are none.
std::string PathInCodePage(const std::wstring& sPath);

// The Windows system that the program runs on.
class WindowsSystem : public System {
 public:
  std::string ProgramFolder() override;
  std::string CommandLineText() override;
  void MakeUpperCase(std::span<char> text) override;
  std::unique_ptr<InputFile> OpenInput(const std::string& sPath) override;
  std::unique_ptr<FileSearch> Search(const std::string& sPath) override;
  void Beep() override;
  MessageAnswer ShowMessage(const std::string& sText, MessageIcon icon, MessageButtons buttons,
                            const std::string& sTitle) override;
  void StartProgram(const std::string& sCommandLine) override;

 private:
  std::string sProgramFolder_;
};

}  // namespace trelin
