#include "platform/host/host_files.h"

#include <sys/stat.h>

#include <set>
#include <utility>

#include "platform/host/host_path.h"
#include "platform/platform_error.h"
#include "tests/host/temporary_folder.h"

namespace trelin {
namespace {

using Names = std::multiset<std::string>;

Names Found(const std::string& sPath) {
  const auto search = SearchHostFiles(sPath);
  Names names;
  while (const auto sName = search->Next()) names.insert(*sName);
  return names;
}

TEST(HostFilesTest, MatchesPatterns) {
  const TemporaryFolder folder;
  const std::string sLong(40, 'a');
  for (const std::string sName : {"Setup.exe", "setup2.EXE", "ReadMe", "\u00e9t\u00e9.txt"}) {
    folder.Write("Disk1/" + sName, "");
  }
  folder.Write("Disk1/" + sLong, "");
  const Names all = {"Setup.exe", "setup2.EXE", "ReadMe", "\xE9t\xE9.txt", sLong};
  const std::pair<const char*, Names> cases[] = {
      {"*", all},
      {"*.*", all},
      {"*.", {"ReadMe", sLong}},
      {"READ*.*", {"ReadMe"}},
      {"s*p*.e*e", {"Setup.exe", "setup2.EXE"}},
      {"setup?.exe", {"setup2.EXE"}},
      {"?T\xC9.TXT", {"\xE9t\xE9.txt"}},
      {"ReadMe?", {}},
      {"setup", {}},
      {"setup.exe?", {}},
      {"*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*ab", {}},  // in bounded time
      {"", {}},
  };
  for (const auto& [sPattern, names] : cases) {
    EXPECT_EQ(Found(ProgramPath(folder / "DISK1/") + sPattern), names) << sPattern;
  }
}

TEST(HostFilesTest, FindsNormalFilesOnly) {
  const TemporaryFolder folder;
  folder.Write("Folder/file", "");
  folder.Write(".hidden", "");
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("Folder/file", folder / "link");
  std::filesystem::create_symlink("Folder", folder / "folder_link");
  std::filesystem::create_symlink("nowhere", folder / "dangling");
  std::filesystem::create_symlink("loop", folder / "loop");
  EXPECT_EQ(Found(folder / "*"), Names{"link"});
  EXPECT_EQ(Found(folder / "folder_LINK\\*"), Names{"file"});
  for (const char* sName : {".hidden", "Folder", "Folder/", "..", "Gone/*", "link/*"}) {
    EXPECT_EQ(Found(folder / sName), Names{}) << sName;
  }
  EXPECT_THROW(Found(folder / "loop/*"), PlatformError);
  EXPECT_THROW(Found(folder / std::string("link\0x", 6)), PlatformError);
}

TEST(HostFilesTest, ReadsFileToItsEnd) {
  const TemporaryFolder folder;
  folder.Write("Trelin.cfg", std::string("a\0\r\n", 4));
  const auto file = OpenHostFile(ProgramPath(folder / "TRELIN.CFG"));
  char buffer[3] = {};
  ASSERT_EQ(file->Read(buffer, 3), 3U);
  EXPECT_EQ(std::string(buffer, 3), std::string("a\0\r", 3));
  EXPECT_EQ(file->Read(buffer, 3), 1U);
  EXPECT_EQ(file->Read(buffer, 3), 0U);
}

TEST(HostFilesTest, SaysWhyFileDoesNotOpen) {
  const TemporaryFolder folder;
  folder.Write("Folder/file", "");
  const std::pair<std::string, const char*> cases[] = {
      {"FOLDER", "Folder\": Is a directory."},
      {"folder\\x", "Folder/x\": No such file or directory."},
      {std::string("Folder/file\0x", 13), "Folder/file?x\": it holds a NUL character."},
  };
  for (const auto& [sPath, sMessage] : cases) {
    try {
      OpenHostFile(ProgramPath(folder / sPath));
      ADD_FAILURE() << sPath;
    } catch (const PlatformError& error) {
      EXPECT_EQ(error.what(), "Could not open the file \"" + (folder / sMessage));
    }
  }
}

}  // namespace
}  // namespace trelin
