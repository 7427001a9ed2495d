#include "platform/host/host_files.h"

#include <sys/stat.h>

#include <set>

#include "platform/host/host_path.h"
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

TEST(HostFilesTest, FindsNormalFilesByPattern) {
  const TemporaryFolder folder;
  for (const char* sName : {"Setup.exe", "setup2.EXE", "Disk1/\u00e9t\u00e9.txt", ".hidden"})
    folder.Write(sName, "");
  EXPECT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("Setup.exe", folder / "Link");
  std::filesystem::create_symlink("loop", folder / "loop");
  const std::pair<const char*, Names> cases[] = {
      {"*.*", {"Setup.exe", "setup2.EXE", "Link"}},
      {"*.", {"Link"}},
      {"s*p*.e*e", {"Setup.exe", "setup2.EXE"}},
      {"setup?.exe", {"setup2.EXE"}},
      {"setup.EXE", {"Setup.exe"}},
      {"DISK1\\?T\xC9.TXT", {"\xE9t\xE9.txt"}},
  };
  for (const auto& [sPattern, names] : cases)
    EXPECT_EQ(Found(ProgramPath(folder / sPattern)), names) << sPattern;
  for (const char* sName : {"", "setup*x", ".hidden", "Disk1", "pipe", "Gone/*", "Link/*"})
    EXPECT_EQ(Found(folder / sName), Names{}) << sName;
  EXPECT_THROW(Found(folder / "loop/*"), PlatformError);
}

TEST(HostFilesTest, ReadsFileToItsEnd) {
  const TemporaryFolder folder;
  folder.Write("Folder/file", std::string("a\0\r\n", 4));
  const auto file = OpenHostFile(ProgramPath(folder / "FOLDER\\File"));
  std::string sBuffer(3, '#');
  EXPECT_EQ(file->Read(sBuffer.data(), 3), 3U);
  EXPECT_EQ(sBuffer, std::string("a\0\r", 3));
  EXPECT_EQ(file->Read(sBuffer.data(), 3), 1U);
  EXPECT_EQ(file->Read(sBuffer.data(), 3), 0U);
  EXPECT_THROW(OpenHostFile(folder / "Folder"), PlatformError);
}

}  // namespace
}  // namespace trelin
