// The whole program on suites that are broken, or at the edge of what 16 bits,
// buffers and paths can hold, with the platform's own registry and files.

#include "tests/app/real_program.h"

#include <optional>
#include <tuple>

#include "suite/reg_entry.h"

namespace trelin {
namespace {

std::string List(const std::string& sLines) {
  return "BLOCK SETUPLIST\nBLOCK APPLICATION\n" + sLines + "END\nEND\n";
}

std::string ListOf(int nCount) {
  std::string sBlocks;
  for (int n = 0; n < nCount; ++n) sBlocks += "BLOCK APPLICATION\nEND\n";
  return "BLOCK SETUPLIST\n" + sBlocks + "END\n";
}

TEST_F(RealProgramWindow, GivesAClearAnswerToBadInput) {
  const std::string sMenu = "Trelin Setup\n", sTen(10'000'000, 'x'), sZeros(5000, '\0');
  const std::string sLine = " of the setup list TRELIN.CFG ", sNot = sLine + "cannot be understood";
  const std::string sAgreement = "Microsoft Product Integration Agreement\n";
  const std::string sLibrary = FileBytes(folder / "ENU35000.DLL");
  const std::string sList = "TRELIN.CFG", sTexts = "ENU35000.DLL";
  // What is in a file, if it is there, and what comes behind the agreement, to which
  // the program does not come without a library.
  const std::tuple<const char*, std::string, std::optional<std::string>, std::string> cases[] = {
      {"no list", sList, {}, "Trelin: Could not open the file \""},
      {"zeros", sList, sZeros, "BlockParse.GetToken: Line 1" + sNot},
      {"no sense", sList, "BLOCK SETUPLIST\n\nSetup\nEND", "BlockParse.GetToken: Line 3" + sNot},
      {"wrong block", sList, "BLOCK SETUPLIST\nBLOCK X",
       "Setup List: Line 2" + sLine +
           "should read \"BLOCK APPLICATION\", but it reads \"BLOCK X\"."},
      {"unknown entry", sList, "BLOCK SETUPLIST\nCOLOUR = 1\nEND",
       sMenu + "Setup List: Trelin Setup does not know the entry \"COLOUR\""},
      {"32767 products", sList, ListOf(32767), sMenu},
      {"32768 products", sList, ListOf(32768),
       "Trelin: The setup list names 32768 products, but the menu can"},
      {"a long title", sList, List("PRODUCT = " + sTen + "\n"), sMenu},
      {"a long line", sList, List(sTen + "\n"),
       "BlockParse.GetToken: Line 3" + sLine.substr(0, 19)},
      {"a late tab", sList, List(sTen + "\t\n"), "Trelin: Line 3 of the setup list is too long: a"},
      {"no library", sTexts, {}, ""},
      {"half a library", sTexts, sLibrary.substr(0, sLibrary.size() / 2), ""},
      {"a library of zeros", sTexts, sZeros, ""},
  };
  const auto write = [&](const std::string& sFile, const std::optional<std::string>& sBytes) {
    if (sBytes) return folder.Write(sFile, *sBytes);
    std::filesystem::remove(Utf8Path(folder / sFile));
  };
  EXPECT_EQ(Run(), sAgreement + sMenu) << "nothing is broken";
  for (const auto& [sCase, sFile, sBytes, sBegin] : cases) {
    write(sFile, sBytes);
    const std::string sExpected =
        sFile == sTexts
            ? "Error at Trelin: The string library ENU35000.DLL is missing from the folder"
            : sAgreement + sBegin;
    EXPECT_EQ(Run().substr(0, sExpected.size()), sExpected) << sCase;
    folder.Write(sList, List(""));
    folder.Write(sTexts, sLibrary);
  }

  write(sTexts, {});
  folder.Write("App/Bin/ENU35000.DLL", sLibrary);
  RegEntry objSettings;
  objSettings.CreateKey("Tessaron\\Settings");
  objSettings.SetString("InstallDirectory", ProgramPath(folder / "App"));
  EXPECT_EQ(Run(), sAgreement + sMenu) << "the library is where the suite is installed";
  objSettings.DeleteValue("InstallDirectory");
}

}  // namespace
}  // namespace trelin
