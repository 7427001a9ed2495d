#include "systems/host/host_files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <set>

#include "seam/platform_error.h"
#include "systems/host/host_path.h"
#include "systems/host/host_system.h"
#include "testing/temporary_folder.h"

namespace trelin {
namespace {

TEST(HostFilesTest, FindsWhatThisSystemTakesForFiles) {
  using Names = std::multiset<std::string>;
  const TemporaryFolder folder;
  for (const char* sName : {"Setup.exe", ".hidden"}) folder.Write(sName, "");
  EXPECT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("Setup.exe", folder / "Link");
  std::filesystem::create_symlink("loop", folder / "loop");
  const auto found = [&](const char* sName) {
    const auto search = SearchHostFiles(folder / sName);
    Names names;
    while (const auto sFound = search->Next()) names.insert(*sFound);
    return names;
  };
  EXPECT_EQ(found("*.*"), (Names{"Setup.exe", "Link"}));
  EXPECT_EQ(found("*."), (Names{"Link"}));
  for (const char* sName : {".hidden", "pipe", "Link/*"}) EXPECT_EQ(found(sName), Names{}) << sName;
  EXPECT_THROW(found("loop/*"), PlatformError);
  EXPECT_THROW(OpenHostFile(folder / "pipe", HostFileKinds::Regular), PlatformError);  // at once
  EXPECT_TRUE(SearchHostFiles("*")->Next()) << "in the current folder";
}

TEST(HostFilesTest, FindsNamesInAnyLetterCase) {
  const TemporaryFolder folder;
  for (const char* sName : {"M\u00fcller.bmp", "menu.ICO", "Menu.ICO", "\u03a9.ico"})
    folder.Write(std::string("Icons/") + sName, "");
  const char* const cases[][2] = {
      {"icons\\M\xDCLLER.BMP", "Icons/M\u00fcller.bmp"},
      {"ICONS/..\\icons\\menu.ICO", "Icons/../Icons/menu.ICO"},  // as written
      {"icons\\MENU.ico", "Icons/Menu.ICO"},                     // first in byte order
      {"ICONS\\\\", "Icons//"},
      {"icons\\Gone\\MENU.ico", "Icons/Gone/MENU.ico"},
      {"icons\\?.ICO", "Icons/?.ICO"},
  };
  for (const auto& [sPath, sHostPath] : cases)
    EXPECT_EQ(HostPath(ProgramPath(folder / "") + sPath), folder / sHostPath);
}

TEST(HostFilesTest, SeesThatFolderHasChanged) {
  const TemporaryFolder folder;
  const auto found = [&folder] { return HostPath(ProgramPath(folder / "MENU.ICO")); };
  usleep(30'000);  // from then on its names are kept
  EXPECT_EQ(found(), folder / "MENU.ICO");
  folder.Write("menu.ico", "");
  EXPECT_EQ(found(), folder / "menu.ico");
  std::filesystem::rename(folder / "menu.ico", folder / "Menu.ico");  // in the same moment
  EXPECT_EQ(found(), folder / "Menu.ico");
}

TEST(HostFilesTest, CommandLineTextIsInTheCodePageOrRefused) {
  const auto text = [](const char* sArgument) {
    const char* const arguments[] = {"trelin", sArgument, "b"};
    return HostSystem(3, arguments).CommandLineText();
  };
  EXPECT_EQ(text("/My  S\u00fcite"), "/My  S\xFCite b");
  for (const char* sText : {"/\u03a9", "/u\u0308", "/\xFC"})  // not in it, in two parts, no UTF-8
    EXPECT_THROW(text(sText), PlatformError) << sText;
}

}  // namespace
}  // namespace trelin
