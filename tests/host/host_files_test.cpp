#include "systems/host/host_files.h"

#include <sys/stat.h>

#include <set>

#include "seam/platform_error.h"
#include "testing/temporary_folder.h"

namespace trelin {
namespace {

using Names = std::multiset<std::string>;

Names Found(const std::string& sPath) {
  const auto search = SearchHostFiles(sPath);
  Names names;
  while (const auto sName = search->Next()) names.insert(*sName);
  return names;
}

TEST(HostFilesTest, FindsWhatThisSystemTakesForFiles) {
  const TemporaryFolder folder;
  for (const char* sName : {"Setup.exe", ".hidden"}) folder.Write(sName, "");
  EXPECT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("Setup.exe", folder / "Link");
  std::filesystem::create_symlink("loop", folder / "loop");
  EXPECT_EQ(Found(folder / "*.*"), (Names{"Setup.exe", "Link"}));
  EXPECT_EQ(Found(folder / "*."), (Names{"Link"}));
  for (const char* sName : {".hidden", "pipe", "Link/*"})
    EXPECT_EQ(Found(folder / sName), Names{}) << sName;
  EXPECT_THROW(Found(folder / "loop/*"), PlatformError);
}

}  // namespace
}  // namespace trelin
