#include "systems/host/file_registry.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <set>
#include <thread>

#include "tests/shared/registry_contract.h"

namespace trelin {

namespace {

using namespace std::literals;

constexpr const char* Log = "SOFTWARE\\Korvanta\\InstallLog";

// A registry file with these values of the log.
std::string LogFile(const std::string& sValues) {
  return std::string("Windows Registry Editor Version 5.00\n\n[HKEY_LOCAL_MACHINE\\") + Log +
         "]\n" + sValues;
}

// Runs the test's code in a process of its own, without a superuser's rights.
void AsOrdinaryUser(const std::function<void()>& code) {
  const pid_t nProcess = fork();
  if (nProcess == 0) {
    EXPECT_TRUE(geteuid() != 0 || setresuid(65534, 65534, 65534) == 0);
    code();
    _exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int nStatus = -1;
  waitpid(nProcess, &nStatus, 0);
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

TEST(FileRegistryPath, ComesFromTheEnvironment) {
  const char* const cases[][4] = {
      {"a.reg", "/data", "/home", "a.reg"},
      {"", "/data", "/home", "/data/trelin/registry.reg"},
      {"", "data", "/home", "/home/.local/share/trelin/registry.reg"},  // no full path
  };
  AsOrdinaryUser([&cases] {  // with an environment of its own
    for (const auto& [sRegistry, sData, sHome, sPath] : cases) {
      setenv("TRELIN_REGISTRY", sRegistry, 1);
      setenv("XDG_DATA_HOME", sData, 1);
      setenv("HOME", sHome, 1);
      EXPECT_EQ(FileRegistry::DefaultPath(), sPath);
    }
  });
}

class FileRegistryTest : public testing::Test {
 protected:
  void Write(const std::string& sValues) const { folder_.Write("registry.reg", LogFile(sValues)); }
  void ExpectValues(const std::string& sValues) const {
    EXPECT_EQ(LogFile(sValues), FileBytes(sPath_));
  }

  TemporaryFolder folder_;
  const std::string sPath_ = folder_ / "registry.reg";
  FileRegistry registry_{sPath_, 20ms};
  RegistryKey hNew_ = RegistryKey::None;
};

TEST_F(FileRegistryTest, OnlyAChangeWritesTheFile) {
  FileRegistry registry(folder_ / "new/registry.reg");
  EXPECT_EQ(RegistryKey::None, Open(registry));
  EXPECT_EQ(RegistryNotFound, registry.DeleteKey(Hive, "SOFTWARE"));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "new"));
  hNew_ = Create(registry, Hive, Log);
  EXPECT_EQ(RegistrySuccess, Set(registry, hNew_, "A", "1"));
  EXPECT_EQ(RegistryInvalidParameter, Set(registry, hNew_, "line\nbreak", "1"));
  EXPECT_EQ(RegistryInvalidParameter, registry.CreateKey(hNew_, "a\nb", RegistryReadWrite, hNew_));
  EXPECT_EQ(FileBytes(folder_ / "new/registry.reg"), LogFile("\"A\"=\"1\"\n"));

  Write("; by hand\n\"A\"=hex(1):31,00\n");
  hNew_ = Create(registry_, Hive, Log);
  EXPECT_EQ(RegistrySuccess, Set(registry_, hNew_, "a", "1"));
  EXPECT_EQ(RegistryNotFound, registry_.DeleteValue(hNew_, "B"));
  ExpectValues("; by hand\n\"A\"=hex(1):31,00\n");
  EXPECT_EQ(RegistrySuccess, Set(registry_, hNew_, "a", "1", 2));  // another type
  ExpectValues("\"A\"=hex(2):31,00\n");
  EXPECT_EQ(RegistrySuccess, registry_.DeleteValue(hNew_, "a"));
  ExpectValues("");
  EXPECT_EQ(RegistryAccessDenied, registry_.DeleteKey(Hive, "SOFTWARE\\Korvanta"));
  EXPECT_EQ(RegistrySuccess, registry_.DeleteKey(Hive, Log));
  EXPECT_EQ(FileBytes(sPath_).find("InstallLog"), std::string::npos);
}

// While the file's stamp may stay when it changes, its bytes are compared.
TEST_F(FileRegistryTest, IsReadAgainOnlyWhenChangedAndParsedOnce) {
  Write("\"A\"=\"1\"\n");
  std::this_thread::sleep_for(30ms);  // longer than a tick of the clock that dates files
  const RegistryKey hKey = Open(registry_);
  for (int i = 0; i < 100; ++i) EXPECT_EQ("1", Check(registry_, "A"));
  EXPECT_EQ(1U, registry_.Reads());
  const auto date = std::filesystem::last_write_time(sPath_);
  for (char c = 'a'; c <= 'z'; ++c) {  // of one size and date and, most of them, within one tick
    Write("\"A\"=\"" + std::string(1, c) + "\"\n");
    std::filesystem::last_write_time(sPath_, date);
    const std::size_t nBefore = registry_.Parses();
    for (int i = 0; i < 3; ++i) EXPECT_EQ(std::string(1, c), Check(registry_, "A"));
    EXPECT_EQ(nBefore + 1, registry_.Parses());
  }
  EXPECT_EQ("z", Get(registry_, hKey, "A"));
  const std::size_t nBefore = registry_.Parses();
  EXPECT_EQ(RegistrySuccess, Set(registry_, hKey, "A", "3"));
  EXPECT_EQ("3", Check(registry_, "A"));
  EXPECT_EQ(nBefore, registry_.Parses()) << "it knows what it has written";
  folder_.Write("registry.reg", "Windows Registry Editor Version 5.00\n");
  EXPECT_EQ(RegistryKey::None, Open(registry_));
  EXPECT_EQ("<1018>", Get(registry_, hKey, "A"));
}

TEST_F(FileRegistryTest, ReplacesTheFileBehindLinks) {
  folder_.Write("data/real.reg", LogFile(""));
  folder_.Write("data/real.reg.tmp", "left by a killed writer");
  chmod((folder_ / "data/real.reg").c_str(), 0640);
  std::filesystem::create_symlink("data/real.reg", folder_ / "link");
  std::filesystem::create_symlink("link", sPath_);
  std::ifstream reader(sPath_);
  EXPECT_EQ(RegistrySuccess, Set(registry_, Open(registry_), "A", "1"));
  EXPECT_TRUE(std::filesystem::is_symlink(sPath_));
  ExpectValues("\"A\"=\"1\"\n");
  EXPECT_EQ(LogFile(""), std::string(std::istreambuf_iterator<char>(reader), {}));
  EXPECT_EQ(std::filesystem::perms{0640}, std::filesystem::status(sPath_).permissions());
  EXPECT_FALSE(std::filesystem::exists(folder_ / "data/real.reg.tmp"));
}

TEST_F(FileRegistryTest, WritersLoseNothingAndReadersSeeWholeFiles) {
  Write("");
  std::vector<std::jthread> writers;
  std::atomic<int> nWriting = 4;
  for (const char cWriter : "1234"s)
    writers.emplace_back([&, cWriter] {
      FileRegistry registry(sPath_);
      const RegistryKey hKey = Open(registry);
      for (int n = 100; n < 200; ++n)
        EXPECT_EQ(RegistrySuccess, Set(registry, hKey, cWriter + std::to_string(n), "x"));
      --nWriting;
    });
  std::set<std::size_t> sizes;
  while (nWriting > 0) {
    const std::size_t nSize = FileBytes(sPath_).size();
    EXPECT_TRUE(sizes.empty() || nSize >= *sizes.rbegin()) << "not whole";
    sizes.insert(nSize);
  }
  EXPECT_GE(sizes.size(), 3U) << "nothing seen between beginning and end";
  for (int n = 0; n < 400; ++n)
    EXPECT_EQ("x", Check(registry_, std::to_string(n / 100 + 1) + std::to_string(100 + n % 100)));
}

TEST_F(FileRegistryTest, AHeldLockIsNamed) {
  Write("");
  const RegistryKey hKey = Open(registry_);
  std::int32_t lResult = RegistryWriteFault;
  FileDescriptor lock = RegistryStore(sPath_).Lock(lResult);
  EXPECT_EQ(RegistrySuccess, lResult);
  EXPECT_EQ(RegistryUnusable, Set(registry_, hKey, "A", "1"));
  EXPECT_NE(registry_.Trouble().find('"' + sPath_ + ".lock\""), std::string::npos)
      << registry_.Trouble();
  ExpectValues("");
  lock.Close();  // as when its holder is killed: the file stays
  EXPECT_EQ(RegistrySuccess, Set(registry_, hKey, "A", "1"));
}

TEST_F(FileRegistryTest, AFileThatMayNotBeWrittenRefusesWriters) {
  Write("\"A\"=\"1\"\n");
  chmod(sPath_.c_str(), 0444);
  chmod((folder_ / ".").c_str(), 0777);
  AsOrdinaryUser([&] {
    EXPECT_EQ(RegistryAccessDenied, registry_.OpenKey(Hive, Log, RegistryReadWrite, hNew_));
    EXPECT_EQ(RegistryAccessDenied, registry_.CreateKey(Hive, "New", RegistryReadWrite, hNew_));
    EXPECT_EQ(RegistryAccessDenied, Set(registry_, Hive, "A", "2"));
    EXPECT_EQ("1", Get(registry_, Open(registry_, 0x20019), "A"));  // KEY_READ
    EXPECT_EQ(1U, registry_.OpenHandles());
  });
}

TEST_F(FileRegistryTest, AFailedWriteLeavesFileAndMemory) {
  Write("");
  chmod(sPath_.c_str(), 0666);
  const auto refused = [&](std::int32_t lResult) {
    Write("\"A\"=\"1\"\n");  // so lately that its date tells nothing
    const RegistryKey hKey = Open(registry_);
    EXPECT_EQ(lResult, Set(registry_, hKey, "A", std::string(2000, '2')));
    EXPECT_EQ("1", Get(registry_, hKey, "A"));
    const std::string sName(250, 'k');
    EXPECT_EQ(lResult, registry_.CreateKey(hKey, sName, RegistryReadWrite, hNew_));
    EXPECT_EQ(1U, registry_.OpenHandles());
    ExpectValues("\"A\"=\"1\"\n");
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
  Write("\"A\"=\"1\"\n");
  for (const std::string sBegun : {"", "Windows Registry Editor Version 5.00\n\"A", "gone"}) {
    Check(registry_, "A");
    folder_.Write("registry.reg", sBegun);
    if (sBegun == "gone") std::filesystem::remove(sPath_);
    std::thread end([&] {
      std::this_thread::sleep_for(1ms);
      Write("\"A\"=\"whole\"\n");
    });
    EXPECT_EQ("whole", Check(registry_, "A")) << "[" << sBegun << "]";
    end.join();
  }
}

TEST_F(FileRegistryTest, WhatCannotBeReadIsReportedAndLeftAlone) {
  Write("\"A\"=\"1\"\n");
  const RegistryKey hKey = Open(registry_);
  Write("A=1\n");
  const auto open = [&] { return registry_.OpenKey(Hive, Log, RegistryReadWrite, hNew_); };
  EXPECT_EQ(RegistryUnusable, open());
  const std::size_t nReads = registry_.Reads();
  EXPECT_EQ(RegistryUnusable, open());
  EXPECT_EQ(RegistryUnusable, registry_.CreateKey(hKey, "New", RegistryReadWrite, hNew_));
  EXPECT_EQ("<" + std::to_string(RegistryUnusable) + ">", Get(registry_, hKey, "A"));
  EXPECT_EQ(RegistryUnusable, Set(registry_, hKey, "A", "2"));
  EXPECT_EQ(RegistryUnusable, registry_.DeleteValue(hKey, "A"));
  EXPECT_EQ(RegistryUnusable, registry_.DeleteKey(Hive, Log));
  EXPECT_NE(registry_.Trouble().find('"' + sPath_ + "\": line 4: "), std::string::npos)
      << registry_.Trouble();
  EXPECT_EQ(nReads, registry_.Reads());
  ExpectValues("A=1\n");
  Write("\"A\"=\"3\"\n");
  EXPECT_EQ("3", Check(registry_, "A"));
  EXPECT_EQ("3", Get(registry_, hKey, "A"));

  std::filesystem::remove(sPath_);
  EXPECT_EQ(0, mkfifo(sPath_.c_str(), 0600));
  EXPECT_EQ(RegistryUnusable, open()) << "a pipe";
}

}  // namespace

}  // namespace trelin
