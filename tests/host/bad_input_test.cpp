// The whole program with the host's registry file, string library reader and
// files, started on a suite that is broken in one way or another.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "platform/entry.h"
#include "platform/host/file_registry.h"
#include "platform/host/host_path.h"
#include "platform/host/host_string_library.h"
#include "platform/host/host_system.h"
#include "platform/platform.h"
#include "startup/start_up.h"
#include "tests/driver.h"
#include "tests/temporary_folder.h"

namespace trelin {
namespace {

// Works in a folder of its own and keeps what it would have shown.
class RecordingSystem : public HostSystem {
 public:
  explicit RecordingSystem(const std::string& sFolder)
      : HostSystem(0, nullptr), sFolder_(ProgramPath(sFolder)) {}

  std::string ProgramFolder() override { return sFolder_; }
  MessageAnswer ShowMessage(const std::string& sText, MessageIcon, MessageButtons,
                            const std::string& sTitle) override {
    sMessages += sTitle + ": " + sText + "\n";
    return MessageAnswer::Ok;
  }

  std::string sMessages;

 private:
  std::string sFolder_;
};

std::string ReadFile(const std::string& sPath) {
  std::ostringstream bytes;
  bytes << std::ifstream(sPath, std::ios::binary).rdbuf();
  return bytes.str();
}

class BadInputWindow : public ::testing::Test {
 protected:
  BadInputWindow() {
    const std::string sBuild = TRELIN_BUILD_DIR;
    std::filesystem::copy(sBuild + "/ENU35000.DLL", folder / "ENU35000.DLL");
    folder.Write("TRELIN.CFG", "BLOCK SETUPLIST\r\nBLOCK APPLICATION\r\nPRODUCT = A\r\nEND\r\nEND");
  }

  // Runs the program, accepts the agreement if it comes, and closes the menu
  // if it opens. Returns the titles of the windows and then the messages.
  std::string Run() {
    RecordingSystem system(folder / "");
    FileRegistry registry(folder / "registry.reg");
    HostStringLibraryLoader libraries;
    UsePlatform({&registry, &libraries, &system});
    std::string sWindows;
    Driver::WhenWindowOpens([&] {
      sWindows += Driver::WindowTitle() + "\n";
      Driver::WhenWindowOpens([&] {
        sWindows += Driver::WindowTitle() + "\n";
        Driver::Type(Key::Escape);
      });
      Driver::Type(Key::Enter);
    });
    Main();
    Driver::ForgetScripts();
    EXPECT_EQ(registry.OpenHandles(), 0U);
    return sWindows + system.sMessages;
  }

  TemporaryFolder folder;
};

TEST_F(BadInputWindow, GetsAClearAnswer) {
  const std::string sAgreement = "Microsoft Product Integration Agreement\n";
  const std::string sMenu = sAgreement + "Trelin Setup\n";
  const std::string sNoLibrary =
      "Error at Trelin: The number of notice lines (string 35040) should be a whole number but "
      "reads \"Error: Resource File Not Found\".\n\nThe string library ENU35000.DLL is missing";
  const std::string sLibrary = ReadFile(folder / "ENU35000.DLL");
  const std::string sSettings =
      "Windows Registry Editor Version 5.00\n\n"
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\Tessaron\\Settings]\n\"InstallDirectory\"=\"" +
      (folder / "App") + "\"\n";
  const auto remove = [&](const char* sName) { std::filesystem::remove(folder / sName); };

  const struct {
    const char* sCase;
    std::function<void()> breakIt;
    std::string sBegin, sContains;
  } cases[] = {
      {"nothing is broken", [] {}, sMenu, ""},
      {"no setup list", [&] { remove("TRELIN.CFG"); }, sAgreement + "Trelin: Could not open",
       "TRELIN.CFG\": No such file"},
      {"a setup list of zeros", [&] { folder.Write("TRELIN.CFG", std::string(5000, '\0')); },
       sAgreement + "BlockParse.GetToken: Line 1 of the setup list", ""},
      {"no string library", [&] { remove("ENU35000.DLL"); }, sNoLibrary, ""},
      {"a string library in the installation",
       [&] {
         remove("ENU35000.DLL");
         folder.Write("registry.reg", sSettings);
         folder.Write("App/Bin/ENU35000.DLL", sLibrary);
       },
       sMenu, ""},
      {"a damaged string library",
       [&] { folder.Write("ENU35000.DLL", sLibrary.substr(0, sLibrary.size() / 2)); }, sNoLibrary,
       ""},
      {"a damaged registry file", [&] { folder.Write("registry.reg", "REGEDIT4\n"); },
       "Error at Trelin: Could not read the registry file", "registry.reg\": line 1: "},
  };
  for (const auto& c : cases) {
    c.breakIt();
    const std::string sShown = Run();
    EXPECT_EQ(sShown.substr(0, c.sBegin.size()), c.sBegin) << c.sCase;
    EXPECT_NE(sShown.find(c.sContains), std::string::npos) << c.sCase << ": " << sShown;
    for (const char* sName : {"TRELIN.CFG", "registry.reg", "App"})
      std::filesystem::remove_all(folder / sName);
    folder.Write("TRELIN.CFG", "BLOCK SETUPLIST");
    folder.Write("ENU35000.DLL", sLibrary);
  }
}

}  // namespace
}  // namespace trelin
