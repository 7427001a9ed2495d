// Sizes and bytes at the edge of what 16 bits, buffers and paths can hold, with
// the platform's own registry and files.

#include "suite/reg_entry.h"
#include "suite/setup_list.h"
#include "tests/app/real_program.h"

namespace trelin {
namespace {

std::string ProductBlock(const std::string& sLines) {
  return "BLOCK APPLICATION\n" + sLines + "END\n";
}

std::string ManyProducts(int nCount) {
  std::string sBlocks;
  for (int n = 0; n < nCount; ++n) sBlocks += ProductBlock("");
  return sBlocks;
}

class Limits : public RealProgramWindow {
 protected:
  Limits() {
    InitStringResources(1033);
    objLog.CreateKey("InstallLog");
  }
  ~Limits() override {
    for (const std::string& sName : recorded_) objLog.DeleteValue(sName);
  }

  void Record(const std::string& sName, const std::string& sText) {
    objLog.SetString(sName, sText);
    recorded_.push_back(sName);
  }

  // The only product of a setup list of these lines.
  std::shared_ptr<MenuItem> Load(const std::string& sLines) {
    folder.Write("TRELIN.CFG", "BLOCK SETUPLIST\n" + ProductBlock(sLines) + "END");
    list_.Initialize();
    list_.LoadFromFile(ProgramPath(folder / "TRELIN.CFG"));
    return list_.MenuItems().Item(1);
  }

  RegEntry objLog;

 private:
  SetupList list_;
  std::vector<std::string> recorded_;
};

TEST_F(Limits, LongTextsAreKeptAndLongRecordsAreNone) {
  for (const std::size_t nSize : {0U, 255U, 256U, 16000U, 40000U}) {
    const std::string sText(nSize, 'x');
    const bool bName = nSize > 0 && nSize < 16384;  // of a value
    Record("Code", sText);
    if (bName) Record(sText, "1");
    const auto objItem = Load("PRODUCTCODE = Code\nPRODUCT = " + sText + "\nREVISION = " + sText +
                              "\n" + sText.substr(0, 32000) + " = an unknown key\n");
    EXPECT_EQ(objItem->Title(), sText);
    EXPECT_EQ(objItem->Status(), nSize == 255 ? "Installed" : "Not installed") << nSize;
    EXPECT_EQ(Load("REVISION = 1\nPRODUCTCODE = " + sText + "\n")->Status(),
              bName ? "Installed" : "Not installed")
        << nSize;
  }
}

TEST_F(Limits, EveryByteIsAByte) {
  for (int n = 1; n < 256; ++n) {
    const std::string sText = std::string("a") + static_cast<char>(n) + "b";
    Record("Code", sText);
    Record("Path", "1");
    Record("PathCheckFile", ProgramPath(folder / "") + sText);
    EXPECT_EQ(Load("PRODUCTCODE = Path\nREVISION = 1\n")->Status(),
              "Installation incomplete: a file is missing")
        << n;
    if (n == '\r' || n == '\n') continue;  // ends a line of the list
    const auto objItem =
        Load("PRODUCTCODE = Code\nREVISION = " + sText + "\nPRODUCT = " + sText + "\n");
    EXPECT_EQ(objItem->Title(), n == '\t' ? "a b" : sText);
    EXPECT_EQ(objItem->Status(), n == '\t' ? "An older revision is installed" : "Installed") << n;
  }
}

TEST_F(Limits, TheProgramSaysWhatIsTooMuch) {
  const std::string sAgreement = "Microsoft Product Integration Agreement\n";
  const std::string sTenMegabytes(10'000'000, 'x');
  const std::pair<std::string, std::string> cases[] = {
      {ManyProducts(32767), "Trelin Setup\n"},
      {ManyProducts(32768), "Trelin: The setup list names 32768 products, but the menu can"},
      {ManyProducts(40000), "Trelin: The setup list names 40000 products, but the menu can"},
      {ProductBlock("PRODUCT = " + sTenMegabytes + "\n"), "Trelin Setup\n"},
      {ProductBlock(sTenMegabytes + "\n"), "BlockParse.GetToken: Line 3 of the setup list TREL"},
      {ProductBlock(sTenMegabytes + "\t\n"), "Trelin: Line 3 of the setup list is too long: a"},
  };
  for (const auto& [sBlocks, sExpected] : cases) {
    folder.Write("TRELIN.CFG", "BLOCK SETUPLIST\n" + sBlocks + "END");
    EXPECT_EQ(Run().substr(0, sAgreement.size() + sExpected.size()), sAgreement + sExpected);
  }
}

}  // namespace
}  // namespace trelin
