#pragma once

#include <gtest/gtest.h>

#include <string>

#include "check/checks.h"
#include "check/list_reader.h"
#include "real_platform.h"
#include "seam/platform.h"
#include "testing/temporary_folder.h"
#include "texts/string_resources.h"

namespace trelin {

// The findings in short: "5:3 unknown-key, 7:1 no-code?", of a library "35010
// missing-text". A warning ends in a question mark.
inline std::string Summary(const Findings& findings) {
  std::string sAll;
  for (const Finding& finding : findings) {
    const Place& place = finding.place;
    sAll +=
        (sAll.empty() ? "" : ", ") +
        (finding.lNumber > 0 ? std::to_string(finding.lNumber)
                             : std::to_string(place.lLine) + ":" + std::to_string(place.lColumn)) +
        " " + finding.pRule->pName + (finding.severity == Severity::Warning ? "?" : "");
  }
  return sAll;
}

// A folder of a suite on the platform's own files, with the program's string
// library: setup.exe, readme.exe, good.bmp, large.png and bad.bmp are there.
class CheckTest : public ::testing::Test {
 protected:
  CheckTest() {
    ResetStringResources();
    InitStringResources(1033);
    for (const char* pName : {"setup.exe", "readme.exe", "bad.bmp"}) folder.Write(pName, "MZ");
    folder.Write("good.bmp", FileBytes(TRELIN_SOURCE_DIR "/demo/pictures/gear.bmp"));
    folder.Write("large.png", FileBytes(TRELIN_SOURCE_DIR "/packaging/icons/48.png"));
  }
  ~CheckTest() override { FreeResourceLibraries(); }

  Suite Read(const std::string& sText) {
    folder.Write("TRELIN.CFG", sText);
    return {ReadCheckedList("A.CFG", system.OpenInput(ProgramPath(folder / "TRELIN.CFG"))),
            ProgramPath(folder / ""), ProgramPath(folder / "")};
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

}  // namespace trelin
