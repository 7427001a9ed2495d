#include "systems/windows/windows_files.h"

#include <windows.h>

#include "real_platform.h"
#include "testing/fake_platform.h"
#include "testing/temporary_folder.h"

namespace trelin {
namespace {

TEST(WindowsFilesTest, HiddenAndSystemFilesDoNotMatch) {
  const TemporaryFolder folder;
  const std::string sFile = ProgramPath(folder / "a.txt");
  folder.Write("a.txt", "");
  for (const auto& [lAttributes, bFound] : {std::pair(FILE_ATTRIBUTE_HIDDEN, false),
                                            {FILE_ATTRIBUTE_SYSTEM, false},
                                            {FILE_ATTRIBUTE_READONLY, true},
                                            {FILE_ATTRIBUTE_NORMAL, true}}) {
    SetFileAttributesA(sFile.c_str(), static_cast<DWORD>(lAttributes));
    for (const char* sName : {"a.txt", "*"})
      EXPECT_EQ(SearchWindowsFiles(ProgramPath(folder / sName))->Next().has_value(), bFound)
          << sName << " " << lAttributes;
  }
}

TEST(WindowsFilesTest, SaysWhyFileDoesNotOpen) {
  const TemporaryFolder folder;
  const std::string sFolder = ProgramPath(folder / "");
  EXPECT_EQ(Failure([&] { OpenWindowsFile(sFolder); }),
            "Could not open the file \"" + sFolder + "\": it is a folder, not a file.");
}

}  // namespace
}  // namespace trelin
