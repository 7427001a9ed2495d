#pragma once

#include "seam/system.h"

namespace trelin {

// The system that the host build runs on.
class HostSystem : public System {
 public:
  // The arguments of main; the command-line text is what follows argv[0],
  // joined by one space.
  HostSystem(int argc, const char* const* argv);

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
  std::string sCommandLineText_;  // UTF-8
  std::string sProgramFolder_;
};

}  // namespace trelin
