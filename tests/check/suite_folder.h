#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "check/checks.h"
#include "check/list_reader.h"
#include "real_platform.h"
#include "seam/platform.h"
#include "testing/temporary_folder.h"
#include "texts/string_resources.h"

namespace trelin {

// A folder of a suite on the platform's own files, with the program's string
// library: setup.exe, readme.exe, good.bmp and bad.bmp are there.
class CheckTest : public ::testing::Test {
 protected:
  CheckTest() {
    ResetStringResources();
    InitStringResources(1033);
    for (const char* pName : {"setup.exe", "readme.exe", "bad.bmp"}) folder.Write(pName, "MZ");
    folder.Write("good.bmp", FileBytes(TRELIN_SOURCE_DIR "/demo/pictures/gear.bmp"));
  }
  ~CheckTest() override { FreeResourceLibraries(); }

  Suite Read(const std::string& sText) {
    folder.Write("TRELIN.CFG", sText);
    return {ReadCheckedList(ProgramPath(folder / "TRELIN.CFG")), ProgramPath(folder / ""),
            ProgramPath(folder / "")};
  }

  // The findings, one a line: "5:3 error unknown-key".
  static std::string Summary(const Findings& findings) {
    std::string sLines;
    for (const Finding& finding : findings)
      sLines += std::to_string(finding.place.lLine) + ":" + std::to_string(finding.place.lColumn) +
                (finding.severity == Severity::Error ? " error " : " warning ") +
                finding.pRule->pName + "\n";
    return sLines;
  }

  static Findings OfRule(std::string_view sRule, Findings findings) {
    std::erase_if(findings, [sRule](const Finding& f) { return f.pRule->pName != sRule; });
    return findings;
  }

  std::string Check(const std::string& sText) { return Summary(CheckSuite(Read(sText))); }

  // The system of the test program, in the folder of the build, where the
  // string library is.
  class BuildSystem : public RealSystem {
   public:
    std::string ProgramFolder() override { return ProgramPath(TRELIN_BUILD_DIR); }
  };

  const TemporaryFolder folder;
  const std::unique_ptr<Registry> registry = RealRegistry(folder / "");
  RealLibraries libraries;
  BuildSystem system;
  const PlatformScope scope{{registry.get(), &libraries, &system}};
};

// A list of these products; each begins in the line that follows the one
// before, the first in line 2.
inline std::string List(const std::vector<std::string>& products) {
  std::string sText = "BLOCK SETUPLIST\r\n";
  for (const std::string& sProduct : products) sText += sProduct;
  return sText + "END\r\n";
}

// A product without a fault, of six lines; sMore, if any, stands in front of its
// END.
inline std::string Product(const std::string& sCode, const std::string& sRevision,
                           const std::string& sMore = "") {
  return "BLOCK APPLICATION\r\nPRODUCT = Product " + sCode + "\r\nPRODUCTCODE = " + sCode +
         "\r\nREVISION = " + sRevision + "\r\nINSTALLFILE = setup.exe\r\n" + sMore + "END\r\n";
}

// A prerequisite, of five lines.
inline std::string Needs(const std::string& sCode, const std::string& sRevision) {
  return "BLOCK DEPENDENCY\r\nTITLE = " + sCode + "\r\nPRODUCTCODE = " + sCode +
         "\r\nREVISION = " + sRevision + "\r\nEND\r\n";
}

}  // namespace trelin
