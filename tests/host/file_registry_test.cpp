#include "platform/host/file_registry.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/platform/registry_contract.h"
#include "tests/products/registry_trees.h"
#include "tests/temporary_folder.h"

namespace trelin {

namespace {

constexpr RegistryKey Hive = RegistryKey::LocalMachine;
constexpr const char* Log = "SOFTWARE\\Korvanta\\InstallLog";

class FolderRegistry : private TemporaryFolder, public FileRegistry {
 public:
  FolderRegistry() : FileRegistry(*this / "registry.reg") {}
};

INSTANTIATE_TEST_SUITE_P(File, RegistryContract,
                         testing::Values([] { return std::make_unique<FolderRegistry>(); }));
INSTANTIATE_TEST_SUITE_P(File, RegistryTrees,
                         testing::Values([] { return std::make_unique<FolderRegistry>(); }));

std::string LogFile(const std::string& sValues) {
  return std::string("Windows Registry Editor Version 5.00\n\n[HKEY_LOCAL_MACHINE\\") + Log +
         "]\n" + sValues;
}

// Longer than a tick of the clock that dates files.
void Settle() { std::this_thread::sleep_for(std::chrono::milliseconds(30)); }

// Runs the test's code in a process of its own, without a superuser's rights.
template <typename Code>
void AsOrdinaryUser(Code code) {
  const pid_t nChild = fork();
  if (nChild == 0) {
    if (geteuid() != 0 || setresuid(65534, 65534, 65534) == 0)
      code();
    else
      ADD_FAILURE() << "the superuser's rights stay";
    _exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int nStatus = -1;
  waitpid(nChild, &nStatus, 0);
  EXPECT_EQ(0, nStatus);
}

RegistryKey Open(FileRegistry& registry, std::uint32_t lAccess = RegistryReadWrite) {
  RegistryKey hKey = RegistryKey::None;
  registry.OpenKey(Hive, Log, lAccess, hKey);
  return hKey;
}

// As one installation check does: open, read, close.
std::string Check(FileRegistry& registry, const std::string& sName) {
  const RegistryKey hKey = Open(registry);
  const std::string sText = Get(registry, hKey, sName);
  registry.CloseKey(hKey);
  return sText;
}

class FileRegistryTest : public testing::Test {
 protected:
  void Write(const std::string& sText) const { folder_.Write("registry.reg", sText); }
  std::string Content() const {
    std::ifstream file(sPath_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  TemporaryFolder folder_;
  const std::string sPath_ = folder_ / "registry.reg";
  RegistryKey hNew_ = RegistryKey::None;
};

TEST_F(FileRegistryTest, OnlyAChangeWritesTheFile) {
  FileRegistry registry(folder_ / "new/registry.reg");
  EXPECT_EQ(RegistryKey::None, Open(registry));
  EXPECT_EQ(RegistryNotFound, registry.DeleteKey(Hive, "SOFTWARE"));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "new"));
  EXPECT_EQ(RegistrySuccess, registry.CreateKey(Hive, Log, RegistryReadWrite, hNew_));
  EXPECT_EQ(RegistrySuccess, Set(registry, hNew_, "A", "1"));
  EXPECT_EQ(RegistryInvalidParameter, Set(registry, hNew_, "line\nbreak", "1"));
  FileRegistry other(folder_ / "new/registry.reg");
  EXPECT_EQ("1", Check(other, "a"));

  Write(LogFile("; by hand\n\"A\"=hex(1):31,00\n"));
  FileRegistry unchanged(sPath_);
  EXPECT_EQ(RegistrySuccess, unchanged.CreateKey(Hive, Log, RegistryReadWrite, hNew_));
  EXPECT_EQ(RegistrySuccess, Set(unchanged, hNew_, "a", "1"));
  EXPECT_EQ(LogFile("; by hand\n\"A\"=hex(1):31,00\n"), Content());
}

TEST_F(FileRegistryTest, IsReadAgainOnlyWhenChanged) {
  Write(LogFile("\"A\"=\"1\"\n"));
  Settle();
  FileRegistry registry(sPath_);
  const RegistryKey hKey = Open(registry);
  for (int i = 0; i < 100; ++i) EXPECT_EQ("1", Check(registry, "A"));
  EXPECT_EQ(1U, registry.Reads());
  const auto date = std::filesystem::last_write_time(sPath_);
  for (char c = 'a'; c <= 'z'; ++c) {  // of one size and date and, most of them, within one tick
    Write(LogFile("\"A\"=\"" + std::string(1, c) + "\"\n"));
    std::filesystem::last_write_time(sPath_, date);
    EXPECT_EQ(std::string(1, c), Check(registry, "A"));
  }
  EXPECT_EQ("z", Get(registry, hKey, "A"));
  Write("Windows Registry Editor Version 5.00\n");
  EXPECT_EQ(RegistryKey::None, Open(registry));
  EXPECT_EQ("<1018>", Get(registry, hKey, "A"));
}

TEST_F(FileRegistryTest, ReplacesTheFileBehindALink) {
  folder_.Write("data/real.reg", LogFile(""));
  folder_.Write("data/real.reg.tmp", "left by a killed writer");
  chmod((folder_ / "data/real.reg").c_str(), 0640);
  std::filesystem::create_symlink("data/real.reg", sPath_);
  FileRegistry registry(sPath_);
  std::ifstream reader(sPath_);
  EXPECT_EQ(RegistrySuccess, Set(registry, Open(registry), "A", "1"));
  EXPECT_TRUE(std::filesystem::is_symlink(sPath_));
  EXPECT_EQ(LogFile("\"A\"=\"1\"\n"), Content());
  EXPECT_EQ(LogFile(""), std::string(std::istreambuf_iterator<char>(reader), {}));
  EXPECT_EQ(std::filesystem::perms{0640}, std::filesystem::status(sPath_).permissions());
  EXPECT_FALSE(std::filesystem::exists(folder_ / "data/real.reg.tmp"));
}

TEST_F(FileRegistryTest, WritersLoseNothingAndReadersSeeWholeFiles) {
  Write(LogFile(""));
  std::vector<std::thread> writers;
  for (char cWriter = '1'; cWriter <= '8'; ++cWriter)
    writers.emplace_back([this, cWriter] {
      FileRegistry registry(sPath_);
      const RegistryKey hKey = Open(registry);
      for (char c = 'a'; c < 'k'; ++c)
        EXPECT_EQ(RegistrySuccess, Set(registry, hKey, {cWriter, c}, {c, cWriter}));
    });
  FileRegistry registry(sPath_);
  for (int i = 0; i < 200; ++i) EXPECT_NE(RegistryKey::None, Open(registry));
  for (std::thread& writer : writers) writer.join();
  for (char cWriter = '1'; cWriter <= '8'; ++cWriter)
    for (char c = 'a'; c < 'k'; ++c)
      EXPECT_EQ(std::string({c, cWriter}), Check(registry, {cWriter, c}));
}

TEST_F(FileRegistryTest, AFileThatMayNotBeWrittenRefusesWriters) {
  Write(LogFile("\"A\"=\"1\"\n"));
  chmod(sPath_.c_str(), 0444);
  chmod((folder_ / ".").c_str(), 0777);
  AsOrdinaryUser([&] {
    FileRegistry registry(sPath_);
    EXPECT_EQ(RegistryAccessDenied, registry.OpenKey(Hive, Log, RegistryReadWrite, hNew_));
    EXPECT_EQ(RegistryAccessDenied, registry.CreateKey(Hive, "New", RegistryReadWrite, hNew_));
    EXPECT_EQ(RegistryAccessDenied, Set(registry, Hive, "A", "2"));
    EXPECT_EQ("1", Get(registry, Open(registry, 0x20019), "A"));  // KEY_READ
    EXPECT_EQ(1U, registry.OpenHandles());
  });
}

TEST_F(FileRegistryTest, AFailedWriteLeavesFileAndMemory) {
  Write(LogFile("\"A\"=\"1\"\n"));
  chmod(sPath_.c_str(), 0666);
  const auto refused = [&](std::int32_t lResult) {
    FileRegistry registry(sPath_);
    const RegistryKey hKey = Open(registry);
    EXPECT_EQ(lResult, Set(registry, hKey, "A", std::string(2000, '2')));
    EXPECT_EQ("1", Get(registry, hKey, "A"));
    const std::string sName(250, 'k');
    EXPECT_EQ(lResult, registry.CreateKey(hKey, sName, RegistryReadWrite, hNew_));
    EXPECT_EQ(1U, registry.OpenHandles());
    EXPECT_EQ(LogFile("\"A\"=\"1\"\n"), Content());
    EXPECT_FALSE(std::filesystem::exists(sPath_ + ".tmp"));
  };
  chmod((folder_ / ".").c_str(), 0555);
  AsOrdinaryUser([&] { refused(RegistryAccessDenied); });
  chmod((folder_ / ".").c_str(), 0777);
  AsOrdinaryUser([&] {  // a limit of the file's size stands in for a full disk
    const rlimit limit{256, 256};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    refused(RegistryDiskFull);
  });
}

TEST_F(FileRegistryTest, WaitsForWhoWritesTheFileInPlace) {
  Write(LogFile("\"A\"=\"1\"\n"));
  FileRegistry registry(sPath_);
  const std::function<void()> beginnings[] = {
      [&] { Write(""); },
      [&] { Write(LogFile("\"A\"=\"hal")); },
      [&] { std::filesystem::remove(sPath_); },
  };
  for (const auto& begin : beginnings) {
    Check(registry, "A");
    begin();
    std::thread end([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      Write(LogFile("\"A\"=\"whole\"\n"));
    });
    EXPECT_EQ("whole", Check(registry, "A"));
    end.join();
  }
}

TEST_F(FileRegistryTest, WhatCannotBeReadIsReportedAndLeftAlone) {
  Write(LogFile("\"A\"=\"1\"\n"));
  FileRegistry registry(sPath_);
  const RegistryKey hKey = Open(registry);
  Write(LogFile("A=1\n"));
  EXPECT_THROW(Open(registry), PlatformError);
  const std::size_t nReads = registry.Reads();
  for (int i = 0; i < 3; ++i) {
    EXPECT_THROW(Open(registry), PlatformError);
    EXPECT_THROW(registry.CreateKey(hKey, "New", RegistryReadWrite, hNew_), PlatformError);
    EXPECT_THROW(Get(registry, hKey, "A"), PlatformError);
    EXPECT_THROW(Set(registry, hKey, "A", "2"), PlatformError);
  }
  EXPECT_EQ(nReads, registry.Reads());
  EXPECT_EQ(LogFile("A=1\n"), Content());
  Write(LogFile("\"A\"=\"3\"\n"));
  EXPECT_EQ("3", Check(registry, "A"));
  EXPECT_EQ("3", Get(registry, hKey, "A"));

  std::filesystem::remove(sPath_);
  EXPECT_EQ(0, mkfifo(sPath_.c_str(), 0600));
  EXPECT_THROW(Open(registry), PlatformError) << "a pipe";
}

}  // namespace

}  // namespace trelin
