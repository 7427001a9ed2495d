#include <random>

#include "shared/registry_file.h"
#include "status/exports.h"
#include "status/options.h"
#include "status/read_only.h"
#include "status/reports.h"
#include "status/suite_status.h"
#include "testing/program_test.h"
#include "texts/messages.h"

namespace trelin {
namespace {

const std::string sStatusList = "C:\\Suite\\TRELIN.CFG";
const std::string sStatusLog = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\InstallLog";

class StatusTest : public ProgramTest {
 protected:
  StatusTest() {
    system.files[sStatusList] =
        "BLOCK SETUPLIST\n"
        "BLOCK APPLICATION\nPRODUCT = One\nPRODUCTCODE = ONE\nREVISION = 2.1\nEND\n"
        "BLOCK APPLICATION\nPRODUCT = Two\nPRODUCTCODE = TWO\nREVISION = 1\n"
        "BLOCK DEPENDENCY\nTITLE = One\nPRODUCTCODE = ONE\nREVISION = 2.0\nEND\n"
        "BLOCK DEPENDENCY\nTITLE = Three\nPRODUCTCODE = THREE\nREVISION = 3\nEND\n"
        "END\n"
        "BLOCK APPLICATION\nPRODUCT = Handbook\nEND\nEND\n";
  }

  // In short: "installed 2.1 needs ONE (-), THREE (2)".
  static std::string Told(const ProductStatus& status) {
    std::string sTold =
        std::string(Reported(status.state).pName) + " " + status.installed.value_or("-");
    for (const UnmetPrerequisite& unmet : status.unmet)
      sTold += (&unmet == &status.unmet.front() ? " needs " : ", ") + unmet.sCode + " (" +
               unmet.installed.value_or("-") + ")";
    return sTold;
  }

  ~StatusTest() override { EXPECT_EQ(registry.OpenHandles(), 0U); }

  std::string Look(Registry& looked, bool bFilesOfOthers) {
    QuietSystem quiet(system, bFilesOfOthers);
    const PlatformScope looking({&looked, &libraries, &quiet});
    std::string sTold;
    for (const ProductStatus& status : SuiteStatus(sStatusList, "").LookAt("PC").products)
      sTold += (sTold.empty() ? "" : "; ") + Told(status);
    return sTold;
  }
};

TEST_F(StatusTest, SaysOfAnyRecordsWhatTheMenuSays) {
  std::mt19937 random(20261126);
  const auto any = [&random](std::vector<std::string> texts) {
    return texts[random() % texts.size()];
  };
  SetupList menu;
  menu.Initialize();
  menu.LoadFromFile(sStatusList);
  SuiteStatus suite(sStatusList, "");
  for (int i = 0; i < 300; ++i) {
    for (const char* pCode : {"ONE", "TWO", "THREE"}) {
      Record(pCode, any({"", "2.1", "2.0", "3", " 1 ", "0.9"}));
      Record(std::string(pCode) + "CheckFile", any({"", sStatusList, "C:\\gone"}));
    }
    menu.CheckInstallations();
    const Workstation workstation = suite.LookAt("PC");
    for (std::int32_t l = 1; l <= menu.MenuItems().Count(); ++l) {
      MenuItem& item = *menu.MenuItems().Item(l);
      const ProductStatus& status = workstation.products[static_cast<std::size_t>(l) - 1];
      ASSERT_EQ(WordsFor(status, false), item.Status()) << item.Title() << " " << Told(status);
      ASSERT_EQ(status.unmet.empty(), item.CheckDependencies()) << item.Title();
      if (status.unmet.empty()) continue;
      EXPECT_EQ(status.unmet.front().sReason, item.LastError());
      item.ClearError();
    }
  }
}

TEST_F(StatusTest, LooksWhereTheMenuMayNotAndChangesNothing) {
  Record("ONE", "2.1");
  Record("ONECheckFile", "C:\\gone");
  Record("THREE", "2");
  registry.SetText("HKEY_LOCAL_MACHINE\\SOFTWARE\\WOW6432Node\\Korvanta\\InstallLog", "TWO", "0.9");
  registry.RefuseAccess(sStatusLog);
  EXPECT_EQ(Look(registry, false),
            "not-installed -; not-installed - needs ONE (-), THREE (-); not-installed -");
  ReadOnlyRegistry looked(registry, false), of32Bits(registry, true);
  EXPECT_EQ(Look(looked, false),
            "incomplete 2.1; not-installed - needs ONE (2.1), THREE (2); not-installed -");
  EXPECT_EQ(Look(looked, true), "installed 2.1; not-installed - needs THREE (2); not-installed -");
  EXPECT_EQ(Look(of32Bits, false),
            "not-installed -; older 0.9 needs ONE (-), THREE (-); not-installed -");

  const std::string sBefore = WriteRegistryText(registry.Tree());
  RegistryKey hKey = RegistryKey::LocalMachine;
  EXPECT_EQ(looked.CreateKey(hKey, "SOFTWARE\\New", RegistryRead, hKey), RegistryAccessDenied);
  EXPECT_EQ(looked.OpenKey(hKey, "SOFTWARE\\Korvanta\\InstallLog", RegistryRead, hKey), 0);
  RegistryKey hOther = RegistryKey::LocalMachine;
  EXPECT_EQ(looked.OpenKey(hOther, "SOFTWARE\\Korvanta\\InstallLog", RegistryRead, hOther), 0);
  EXPECT_EQ(looked.CloseKey(hOther), 0);
  EXPECT_EQ(looked.SetValue(hKey, "ONE", RegistryTypeText, "3", 1), RegistryAccessDenied);
  EXPECT_EQ(looked.DeleteValue(hKey, "ONE"), RegistryAccessDenied);
  EXPECT_EQ(looked.CloseKey(hKey), 0);
  EXPECT_EQ(looked.DeleteKey(RegistryKey::LocalMachine, "SOFTWARE"), RegistryAccessDenied);
  EXPECT_EQ(WriteRegistryText(registry.Tree()), sBefore);
  EXPECT_THROW(QuietSystem(system, false).StartProgram("x"), std::runtime_error);
  EXPECT_TRUE(system.messages.empty());
}

TEST_F(StatusTest, OneProductIsFoundByItsCode) {
  EXPECT_EQ(SuiteStatus(sStatusList, "two").Products().size(), 1U);
  EXPECT_EQ(SuiteStatus(sStatusList, "two").LookAt("PC").products.size(), 1U);
  EXPECT_EQ(Failure([] { SuiteStatus(sStatusList, "x"); }),
            "The setup list has no product code \"x\".");
}

// Two workstations, the second with a name that means something everywhere.
class StatusReports : public ProgramTest {
 protected:
  StatusReports() {
    report.products = {{"ONE", "Pr\xFC\x66stand, \"1\"", "2.1"}, {"", "Handbook", ""}};
    report.workstations = {{"PC", {{ProductState::Installed, "2.1", CheckFile::Present, {}}, {}}},
                           {"=<b>&\t'",
                            {{ProductState::Older,
                              "<script>",
                              CheckFile::NotRecorded,
                              {{"N", "Need", "1", {}, "Why."}, {"M", "More", "2", "1", "So."}}},
                             {}}}};
    report.failures = {"Bad \"<i>\"."};
    report.sTime = "now";
  }

  static std::string Told(void (*write)(const StatusReport&, const Output&),
                          const StatusReport& told) {
    std::string sAll;
    write(told, [&sAll](const std::string& sPiece) { sAll += sPiece; });
    return sAll;
  }

  StatusReport report;
};

TEST_F(StatusReports, Text) {
  EXPECT_EQ(
      Told(WriteStatusText, {false, report.products, {report.workstations[0]}, {}, "", "", ""}),
      "Product         Code  Offered  Installed  State\n"
      "Pr\u00FCfstand, \"1\"  ONE   2.1      2.1        35016\n"
      "Handbook                       -          35015\n");
  report.bExports = true;
  EXPECT_EQ(Told(WriteStatusText, report),
            "Workstation  Product         Code  Offered  Installed  State\n"
            "PC           Pr\u00FCfstand, \"1\"  ONE   2.1      2.1        35016 (recorded, file "
            "not looked at)\n"
            "PC           Handbook                       -          35015\n"
            "=<b>& '      Pr\u00FCfstand, \"1\"  ONE   2.1      <script>   35017. Why. So.\n"
            "=<b>& '      Handbook                       -          35015\n"
            "\n2 workstations, 1 export not readable\n"
            "Pr\u00FCfstand, \"1\" 2.1: 1 x 35016, 1 x 35017; needed by =<b>&\t'\n"
            "Handbook : 2 x 35015\n");
}

TEST_F(StatusReports, Csv) {
  EXPECT_EQ(Told(WriteStatusCsv, report),
            "machine,code,title,offered,installed,state,fileChecked,unmet\r\n"
            "PC,ONE,\"Pr\u00FCfstand, \"\"1\"\"\",2.1,2.1,installed,true,\r\n"
            "PC,,Handbook,,,not-installed,false,\r\n"
            "'=<b>&\t',ONE,\"Pr\u00FCfstand, \"\"1\"\"\",2.1,<script>,older,false,Why. So.\r\n"
            "'=<b>&\t',,Handbook,,,not-installed,false,\r\n");
}

TEST_F(StatusReports, Json) {
  report.bExports = true;
  std::string sJson = Told(WriteStatusJson, report);
  for (const char* pPart :
       {"\"version\": 1,", "\"tool\": \"trelin-status\",", "\"time\": \"now\",",
        "\"name\": \"=<b>&\\u0009'\",", "\"title\": \"Pr\u00FCfstand, \\\"1\\\"\",",
        "\"offered\": \"2.1\",", "\"installed\": \"2.1\",", "\"installed\": null,",
        "\"state\": \"older\",", "\"fileChecked\": false,", "\"code\": \"N\",",
        "\"required\": \"1\",", "\"reason\": \"Why.\"", "\"Bad \\\"<i>\\\".\""})
    EXPECT_NE(sJson.find(pPart), std::string::npos) << pPart;
  EXPECT_EQ(sJson.find("\"fileChecked\": true"), std::string::npos);
  report.bExports = false;
  EXPECT_NE(Told(WriteStatusJson, report).find("\"fileChecked\": true"), std::string::npos);
}

TEST(Exports, OfAFolderAListAndAFile) {
  FakePlatform platform;
  const std::string sText = std::string(RegistryFileHeader) + "\n[HKEY_LOCAL_MACHINE\\X]\n";
  platform.system.files = {
      {"list.txt", "a\\B.REG\r\n\r\nc/D\n"}, {"a\\B.REG", sText}, {"bad.reg", "x"}};
  EXPECT_EQ(ExportFiles({"z.reg", "@list.txt"}),
            (std::vector<std::string>{"z.reg", "a\\B.REG", "c\\D"}));
  std::string sBytes;
  EXPECT_NE(ReadExport("a\\B.REG", sBytes)->FindKey("HKEY_LOCAL_MACHINE")->FindKey("x"), nullptr);
  EXPECT_NE(Failure([&] { ReadExport("bad.reg", sBytes); }).find("bad.reg\": line 1: "),
            std::string::npos);
  const std::pair<const char*, const char*> names[] = {
      {"a\\PC-1.reg", "PC-1"}, {"PC.2.REG", "PC.2"}, {"x\\.reg", ".reg"}, {"PC", "PC"}};
  for (const auto& [pFile, pName] : names) EXPECT_EQ(WorkstationOf(pFile), pName);
}

TEST(StatusOptions, WhatStandsBehindRecordsAreExports) {
  const auto options = ParseStatusOptions(
      {"a/b", "--records", "c.reg", "d/", "--product=X", "--view", "32", "--format", "csv", "e"});
  EXPECT_EQ(options.sFolder, "a\\b");
  EXPECT_EQ(options.records, (std::vector<std::string>{"c.reg", "d\\", "e"}));
  EXPECT_EQ(options.sCode, "X");
  EXPECT_TRUE(options.b32Bits);
  EXPECT_EQ(options.format, StatusFormat::Csv);
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"a", "b"}, "One suite can be looked at at a time; exports follow --records."},
      {{"--records"}, "The option \"--records\" needs a value."},
      {{"--view", "16"}, "The view \"16\" is neither 64 nor 32."},
      {{"--format", "xml"}, "The format \"xml\" is none of text, json, csv and html."},
      {{"--strict"}, "The option \"--strict\" is unknown."},
      {{""}, "The name of the folder or file is empty."},
  };
  for (const auto& [arguments, pMessage] : cases)
    EXPECT_EQ(Failure([&, &given = arguments] { ParseStatusOptions(given); }), pMessage);
}

}  // namespace
}  // namespace trelin
