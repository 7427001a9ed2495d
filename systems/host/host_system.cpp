#include "systems/host/host_system.h"

#include <QApplication>
#include <filesystem>

#include "shared/code_page.h"
#include "systems/host/host_files.h"
#include "systems/host/host_path.h"
#include "systems/host/host_process.h"
#include "systems/host/message_box.h"

namespace trelin {

HostSystem::HostSystem(int argc, const char* const* argv) {
  for (int i = 1; i < argc; ++i) {
    if (i > 1) sCommandLineText_ += ' ';
    sCommandLineText_ += argv[i];
  }
}

namespace {

std::string FindProgramFolder() {
  const char* const pOperation = "find the program's own folder";
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) throw HostError(pOperation, "/proc/self/exe", error.value());
  const std::string sFolder = program.parent_path().string();
  std::string sPath = ProgramPath(sFolder);
  if (HostPath(sPath) != sFolder) {
    throw PlatformError(pOperation, ShownPath(sFolder),
                        "its name holds characters that the program cannot use");
  }
  return sPath;
}

}  // namespace

std::string HostSystem::ProgramFolder() {
  if (sProgramFolder_.empty()) sProgramFolder_ = FindProgramFolder();
  return sProgramFolder_;
}

std::string HostSystem::CommandLineText() {
  std::string sText = FromUtf8(sCommandLineText_);
  if (ToUtf8(sText) != sCommandLineText_) {
    throw PlatformError("use the folder on the command line", sText,
                        "its name holds characters that the program cannot use");
  }
  return sText;
}

void HostSystem::MakeUpperCase(std::span<char> text) { MakeUpperCase1252(text); }

std::unique_ptr<InputFile> HostSystem::OpenInput(const std::string& sPath) {
  return OpenHostFile(sPath);
}

std::unique_ptr<FileSearch> HostSystem::Search(const std::string& sPath) {
  return SearchHostFiles(sPath);
}

void HostSystem::Beep() { QApplication::beep(); }

MessageAnswer HostSystem::ShowMessage(const std::string& sText, MessageIcon icon,
                                      MessageButtons buttons, const std::string& sTitle) {
  return ShowMessageBox(sText, icon, buttons, sTitle);
}

void HostSystem::StartProgram(const std::string& sCommandLine) { StartHostProgram(sCommandLine); }

}  // namespace trelin
