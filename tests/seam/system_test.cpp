#include <set>

#include "real_platform.h"
#include "seam/platform_error.h"
#include "testing/temporary_folder.h"

namespace trelin {
namespace {

using NameCounts = std::multiset<std::string>;

NameCounts Found(const std::string& sPath) {
  const auto search = RealSystem().Search(sPath);
  NameCounts names;
  while (const auto sName = search->Next()) names.insert(*sName);
  return names;
}

TEST(SystemTest, FindsNormalFilesByPattern) {
  const TemporaryFolder folder;
  for (const char* sName : {"Setup.exe", "setup2.EXE", "Plain", "Disk1/\u00e9t\u00e9.txt"})
    folder.Write(sName, "");
  const std::pair<const char*, NameCounts> cases[] = {
      {"*.*", {"Setup.exe", "setup2.EXE", "Plain"}},
      {"s*p*.e*e", {"Setup.exe", "setup2.EXE"}},
      {"setup?.exe", {"setup2.EXE"}},
      {"setup.EXE", {"Setup.exe"}},
      {"setup.EXE. .", {"Setup.exe"}},
      {"plain.", {"Plain"}},
      {"s*2.exe. ", {"setup2.EXE"}},
      {"DISK1\\?T\xC9.TXT", {"\xE9t\xE9.txt"}},
  };
  for (const auto& [sPattern, names] : cases)
    EXPECT_EQ(Found(ProgramPath(folder / "") + sPattern), names) << sPattern;
  for (const char* sName : {"", " ", "setup*x", "setup.exe/ ", "Disk1", "Gone/*"})
    EXPECT_EQ(Found(ProgramPath(folder / sName)), NameCounts{}) << sName;
  for (int n = 1; n < 256; ++n) try {
      EXPECT_EQ(Found(ProgramPath(folder / "a") + static_cast<char>(n) + "b"), NameCounts{}) << n;
    } catch (const PlatformError&) {  // Windows refuses names that cannot be
    }
  EXPECT_THROW(Found(std::string("Plain\0x", 7)), PlatformError);
}

TEST(SystemTest, ReadsFileToItsEnd) {
  const TemporaryFolder folder;
  folder.Write("Folder/file", std::string("\x1A\0\r\n", 4));
  const auto file = RealSystem().OpenInput(ProgramPath(folder / "FOLDER\\File"));
  std::string sBuffer(3, '#');
  EXPECT_EQ(file->Read(sBuffer.data(), 3), 3U);
  EXPECT_EQ(sBuffer, std::string("\x1A\0\r", 3));
  EXPECT_EQ(file->Read(sBuffer.data(), 3), 1U);
  EXPECT_EQ(file->Read(sBuffer.data(), 3), 0U);
  for (const char* sName : {"Folder", "Gone", "Gone/file"})
    EXPECT_THROW(RealSystem().OpenInput(ProgramPath(folder / sName)), PlatformError) << sName;
}

TEST(SystemTest, UpperCaseIsThatOfTheCodePage) {
  std::string sText = "a1\xE9\xFF\xDF\x9A";
  RealSystem().MakeUpperCase(sText);
  EXPECT_EQ(sText, "A1\xC9\x9F\xDF\x8A");
}

}  // namespace
}  // namespace trelin
