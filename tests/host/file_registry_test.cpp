#include "platform/host/file_registry.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/host/temporary_folder.h"
#include "tests/platform/registry_contract.h"

namespace trelin {

namespace {

constexpr std::uint32_t ReadOnly = 0x20019;  // KEY_READ
constexpr const char* Log = "SOFTWARE\\Korvanta\\InstallLog";

class FolderRegistry : private TemporaryFolder, public FileRegistry {
 public:
  FolderRegistry() : FileRegistry(*this / "registry.reg") {}
};

INSTANTIATE_TEST_SUITE_P(File, RegistryContract,
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

class FileRegistryTest : public testing::Test {
 protected:
  static RegistryKey Open(FileRegistry& registry, std::uint32_t lAccess = RegistryReadWrite) {
    RegistryKey hKey = RegistryKey::None;
    registry.OpenKey(RegistryKey::LocalMachine, Log, lAccess, hKey);
    return hKey;
  }
  static std::int32_t Set(FileRegistry& registry, RegistryKey hKey, const std::string& sName,
                          const std::string& sData) {
    return registry.SetValue(hKey, sName, 1, sData.data(),
                             static_cast<std::uint32_t>(sData.size()));
  }
  static std::string Get(FileRegistry& registry, RegistryKey hKey, const std::string& sName) {
    std::array<char, 256> buffer{};
    std::uint32_t lSize = 255;
    const std::int32_t lResult = registry.QueryValue(hKey, sName, buffer.data(), lSize);
    return lResult == 0 ? buffer.data() : "<" + std::to_string(lResult) + ">";
  }
  // As one installation check does: open, read, close.
  static std::string Check(FileRegistry& registry, const std::string& sName) {
    const RegistryKey hKey = Open(registry);
    const std::string sText = Get(registry, hKey, sName);
    registry.CloseKey(hKey);
    return sText;
  }
  std::string Content() const {
    std::ifstream file(sPath_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void Write(const std::string& sText) const { std::ofstream(sPath_, std::ios::binary) << sText; }

  TemporaryFolder folder_;
  const std::string sPath_ = folder_ / "registry.reg";
};

TEST_F(FileRegistryTest, IsCreatedByTheFirstChangeOnly) {
  const std::string sDeep = folder_ / "new/folder/registry.reg";
  FileRegistry registry(sDeep);
  EXPECT_EQ(RegistryKey::None, Open(registry));
  EXPECT_EQ(RegistryNotFound, registry.DeleteKey(RegistryKey::LocalMachine, "SOFTWARE"));
  EXPECT_EQ(RegistryNotFound, registry.DeleteValue(RegistryKey::LocalMachine, "x"));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "new"));
  RegistryKey hKey = RegistryKey::None;
  EXPECT_EQ(RegistryInvalidParameter,
            registry.CreateKey(RegistryKey::LocalMachine, "line\nbreak", RegistryReadWrite, hKey));
  EXPECT_EQ(RegistrySuccess,
            registry.CreateKey(RegistryKey::LocalMachine, Log, RegistryReadWrite, hKey));
  EXPECT_EQ(RegistrySuccess, Set(registry, hKey, "A", "1"));
  EXPECT_EQ(RegistryInvalidParameter, Set(registry, hKey, "line\nbreak", "1"));
  FileRegistry other(sDeep);
  EXPECT_EQ("1", Check(other, "a"));
}

TEST_F(FileRegistryTest, IsReadAgainOnlyWhenChanged) {
  Write(LogFile("\"A\"=\"1\"\n"));
  Settle();
  FileRegistry registry(sPath_);
  const RegistryKey hKey = Open(registry);
  for (int i = 0; i < 100; ++i) EXPECT_EQ("1", Check(registry, "A"));
  EXPECT_EQ(1U, registry.Reads());
  const auto date = std::filesystem::last_write_time(sPath_);
  for (int i = 0; i < 100; ++i) {  // of one size and date and, most of them, within one tick
    const std::string sText(1, static_cast<char>('a' + i % 26));
    Write(LogFile("\"A\"=\"" + sText + "\"\n"));
    std::filesystem::last_write_time(sPath_, date);
    EXPECT_EQ(sText, Check(registry, "A"));
  }
  EXPECT_EQ("v", Get(registry, hKey, "A"));
  Write("Windows Registry Editor Version 5.00\n");
  EXPECT_EQ(RegistryKey::None, Open(registry));
  EXPECT_EQ("<1018>", Get(registry, hKey, "A"));
}

TEST_F(FileRegistryTest, AStampIsTrustedOnceTheClockHasMovedOn) {
  Write("");
  FileStamp stamp = RegistryStore(sPath_).Stamp();
  Settle();
  EXPECT_TRUE(stamp.Settled());
  stamp.nChanged += 3'600'000'000'000;  // a clock that was set back
  EXPECT_FALSE(stamp.Settled());
}

TEST_F(FileRegistryTest, WhatChangesNothingWritesNothing) {
  Write(LogFile("; by hand\n\"A\"=hex(1):31,00\n"));
  FileRegistry registry(sPath_);
  RegistryKey hKey = RegistryKey::None;
  EXPECT_EQ(0, registry.CreateKey(RegistryKey::LocalMachine, Log, RegistryReadWrite, hKey));
  EXPECT_EQ(RegistrySuccess, Set(registry, hKey, "a", "1"));
  EXPECT_EQ(RegistryNotFound, registry.DeleteValue(hKey, "B"));
  EXPECT_EQ(RegistryAccessDenied, registry.DeleteKey(RegistryKey::LocalMachine, "SOFTWARE"));
  EXPECT_EQ(LogFile("; by hand\n\"A\"=hex(1):31,00\n"), Content());
  EXPECT_FALSE(std::filesystem::exists(sPath_ + ".lock"));
}

TEST_F(FileRegistryTest, ReplacesTheFileBehindALink) {
  folder_.Write("data/real.reg", LogFile(""));
  folder_.Write("data/real.reg.tmp", "left by a killed writer");
  chmod((folder_ / "data/real.reg").c_str(), 0640);
  std::filesystem::create_symlink("data/real.reg", sPath_);
  FileRegistry registry(sPath_);
  EXPECT_EQ(RegistrySuccess, Set(registry, Open(registry), "A", "1"));
  EXPECT_TRUE(std::filesystem::is_symlink(sPath_));
  EXPECT_EQ(LogFile("\"A\"=\"1\"\n"), Content());
  EXPECT_EQ(std::filesystem::perms{0640}, std::filesystem::status(sPath_).permissions());
  EXPECT_FALSE(std::filesystem::exists(folder_ / "data/real.reg.tmp"));
}

TEST_F(FileRegistryTest, WritersLoseNothingAndReadersSeeWholeFiles) {
  Write(LogFile(""));
  const auto write = [&](char cWriter) {
    FileRegistry registry(sPath_);
    const RegistryKey hKey = Open(registry);
    for (char c = 'a'; c < 'k'; ++c)
      EXPECT_EQ(RegistrySuccess, Set(registry, hKey, {cWriter, c}, {c, cWriter}));
  };
  std::vector<std::thread> writers;
  for (char c = '1'; c <= '8'; ++c) writers.emplace_back(write, c);
  FileRegistry registry(sPath_);
  for (int i = 0; i < 200; ++i) EXPECT_NE(RegistryKey::None, Open(registry));
  for (std::thread& writer : writers) writer.join();
  Open(registry);
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
    RegistryKey hKey = RegistryKey::None;
    EXPECT_EQ(RegistryAccessDenied,
              registry.OpenKey(RegistryKey::LocalMachine, Log, RegistryReadWrite, hKey));
    EXPECT_EQ(RegistryAccessDenied,
              registry.CreateKey(RegistryKey::LocalMachine, "New", RegistryReadWrite, hKey));
    EXPECT_EQ(RegistryAccessDenied, Set(registry, RegistryKey::LocalMachine, "A", "2"));
    EXPECT_EQ("1", Get(registry, Open(registry, ReadOnly), "A"));
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
    RegistryKey hNew = RegistryKey::None;
    EXPECT_EQ(lResult, registry.CreateKey(hKey, std::string(250, 'k'), RegistryReadWrite, hNew));
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

TEST_F(FileRegistryTest, ADamagedFileIsReportedAndLeftAlone) {
  Write(LogFile("\"A\"=\"1\"\n"));
  FileRegistry registry(sPath_);
  const RegistryKey hKey = Open(registry);
  Write(LogFile("A=1\n"));
  Settle();
  RegistryKey hNew = RegistryKey::None;
  for (int i = 0; i < 3; ++i) {
    EXPECT_THROW(Open(registry), PlatformError);
    EXPECT_THROW(registry.CreateKey(hKey, "New", RegistryReadWrite, hNew), PlatformError);
    EXPECT_THROW(Get(registry, hKey, "A"), PlatformError);
    EXPECT_THROW(Set(registry, hKey, "A", "2"), PlatformError);
    EXPECT_THROW(registry.DeleteValue(hKey, "A"), PlatformError);
  }
  EXPECT_EQ(2U, registry.Reads());
  EXPECT_EQ(LogFile("A=1\n"), Content());
  Write(LogFile("\"A\"=\"3\"\n"));
  EXPECT_EQ("3", Check(registry, "A"));
  EXPECT_EQ("3", Get(registry, hKey, "A"));
  EXPECT_EQ(RegistrySuccess, registry.CloseKey(hKey));
}

TEST_F(FileRegistryTest, WhatIsNoFileIsReported) {
  FileRegistry registry(sPath_);
  std::filesystem::create_directory(sPath_);
  EXPECT_THROW(Open(registry), PlatformError);
  std::filesystem::remove(sPath_);
  EXPECT_EQ(0, mkfifo(sPath_.c_str(), 0600));
  EXPECT_THROW(Open(registry), PlatformError);
}

TEST(FileRegistryPath, ComesFromTheEnvironment) {
  struct Case {
    const char* sRegistry;
    const char* sData;
    const char* sPath;
  };
  const std::vector<Case> cases = {{"/r.reg", "/data", "/r.reg"},
                                   {"", "/data", "/data/trelin/registry.reg"},
                                   {"", "data", "/home/u/.local/share/trelin/registry.reg"},
                                   {"", "", "/home/u/.local/share/trelin/registry.reg"}};
  AsOrdinaryUser([&] {  // whose process has an environment of its own
    setenv("HOME", "/home/u", 1);
    for (const Case& c : cases) {
      setenv("TRELIN_REGISTRY", c.sRegistry, 1);
      setenv("XDG_DATA_HOME", c.sData, 1);
      EXPECT_EQ(c.sPath, FileRegistry::DefaultPath());
    }
  });
}

}  // namespace

}  // namespace trelin
