#pragma once

#include <memory>
#include <string>

#include "real_platform.h"
#include "testing/temporary_folder.h"
#include "tests/app/program_window.h"
#include "texts/string_resources.h"

namespace trelin {

// Works in a folder of its own and keeps what it would have shown.
class RecordingSystem : public RealSystem {
 public:
  explicit RecordingSystem(const std::string& sPath) : sFolder(ProgramPath(sPath)) {}

  std::string ProgramFolder() override { return sFolder; }
  std::string CommandLineText() override { return ""; }
  MessageAnswer ShowMessage(const std::string& sText, MessageIcon, MessageButtons,
                            const std::string& sTitle) override {
    sMessages += sTitle + ": " + sText + "\n";
    return MessageAnswer::Ok;
  }

  std::string sFolder;
  std::string sMessages;
};

// The whole program with the platform's registry, string library reader and
// files, in a folder with a string library and a setup list of one product.
class RealProgramWindow : public ::testing::Test {
 protected:
  RealProgramWindow() {
    folder.Write("ENU35000.DLL", FileBytes(TRELIN_BUILD_DIR "/ENU35000.DLL"));
    folder.Write("TRELIN.CFG", "BLOCK SETUPLIST\r\nBLOCK APPLICATION\r\nPRODUCT = A\r\nEND\r\nEND");
  }

  // Runs the program, accepts the agreement if it comes, and closes the menu if it
  // opens. Returns the titles of the windows and then the messages.
  std::string Run() {
    system.sMessages.clear();
    std::string sWindows;
    const auto noteWindow = [&] { sWindows += Driver::WindowTitle() + "\n"; };
    RunProgram(noteWindow, [&] { noteWindow(), Driver::Type(Key::Escape); });
    FreeResourceLibraries();  // as the end of the process does
    return sWindows + system.sMessages;
  }

  const TemporaryFolder folder;
  const std::unique_ptr<Registry> registry = RealRegistry(folder / "");
  RealLibraries libraries;
  RecordingSystem system{folder / ""};
  const PlatformScope scope{{registry.get(), &libraries, &system}};
};

}  // namespace trelin
