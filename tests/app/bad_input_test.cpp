// The whole program, started on a suite that is broken in one way or another.

#include <functional>

#include "suite/reg_entry.h"
#include "tests/app/real_program.h"

namespace trelin {
namespace {

TEST_F(RealProgramWindow, GivesAClearAnswerToBadInput) {
  const std::string sAgreement = "Microsoft Product Integration Agreement\n";
  const std::string sMenu = sAgreement + "Trelin Setup\n";
  const std::string sNoLibrary =
      "Error at Trelin: The string library ENU35000.DLL is missing from the folder";
  const std::string sLibrary = FileBytes(folder / "ENU35000.DLL");
  const auto remove = [&](const char* sName) {
    std::filesystem::remove_all(Utf8Path(folder / sName));
  };
  RegEntry objSettings;
  objSettings.CreateKey("Tessaron\\Settings");

  const struct {
    const char* sCase;
    std::function<void()> breakIt;
    std::string sBegin, sContains;
  } cases[] = {
      {"nothing is broken", [] {}, sMenu, ""},
      {"no setup list", [&] { remove("TRELIN.CFG"); }, sAgreement + "Trelin: Could not open",
       "TRELIN.CFG\": "},
      {"a setup list of zeros", [&] { folder.Write("TRELIN.CFG", std::string(5000, '\0')); },
       sAgreement + "BlockParse.GetToken: Line 1 of the setup list", ""},
      {"no string library", [&] { remove("ENU35000.DLL"); }, sNoLibrary, ""},
      {"a string library in the installation",
       [&] {
         remove("ENU35000.DLL");
         objSettings.SetString("InstallDirectory", ProgramPath(folder / "App"));
         folder.Write("App/Bin/ENU35000.DLL", sLibrary);
       },
       sMenu, ""},
      {"a damaged string library",
       [&] { folder.Write("ENU35000.DLL", sLibrary.substr(0, sLibrary.size() / 2)); }, sNoLibrary,
       ""},
  };
  for (const auto& c : cases) {
    c.breakIt();
    const std::string sShown = Run();
    EXPECT_EQ(sShown.substr(0, c.sBegin.size()), c.sBegin) << c.sCase;
    EXPECT_NE(sShown.find(c.sContains), std::string::npos) << c.sCase << ": " << sShown;
    objSettings.DeleteValue("InstallDirectory");
    remove("App");
    folder.Write("TRELIN.CFG", "BLOCK SETUPLIST");
    folder.Write("ENU35000.DLL", sLibrary);
  }
}

}  // namespace
}  // namespace trelin
