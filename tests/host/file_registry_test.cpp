#include "systems/host/file_registry.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "testing/temporary_folder.h"
#include "tests/shared/registry_contract.h"
#include "tests/suite/registry_trees.h"

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

// Runs the test's code in a process of its own.
template <typename Code>
pid_t Start(Code code) {
  const pid_t nProcess = fork();
  if (nProcess != 0) return nProcess;
  code();
  _exit(testing::Test::HasFailure() ? 1 : 0);
}

// Whether the process goes on; expects that it has not failed when it ends.
bool Runs(pid_t nProcess) {
  int nStatus = -1;
  if (waitpid(nProcess, &nStatus, WNOHANG) == 0) return true;
  EXPECT_EQ(0, nStatus);
  return false;
}

// The same without a superuser's rights, to its end.
template <typename Code>
void AsOrdinaryUser(Code code) {
  const pid_t nProcess = Start([&] {
    if (geteuid() != 0 || setresuid(65534, 65534, 65534) == 0)
      code();
    else
      ADD_FAILURE() << "the superuser's rights stay";
  });
  while (Runs(nProcess)) Settle();
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

// As long as the file's stamp may stay when it changes, its bytes are compared.
TEST_F(FileRegistryTest, AChangeIsParsedOnce) {
  FileRegistry registry(sPath_);
  for (const std::string sValue : {"1", "2"}) {
    Write(LogFile("\"A\"=\"" + sValue + "\"\n"));
    const std::size_t nBefore = registry.Parses();
    for (int i = 0; i < 10; ++i) EXPECT_EQ(sValue, Check(registry, "A"));
    EXPECT_EQ(nBefore + 1, registry.Parses());
  }
  const RegistryKey hKey = Open(registry);
  const std::size_t nBefore = registry.Parses();
  EXPECT_EQ(RegistrySuccess, Set(registry, hKey, "A", "3"));
  EXPECT_EQ("3", Check(registry, "A"));
  EXPECT_EQ(nBefore, registry.Parses()) << "it knows what it has written";
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
  std::vector<std::string> names;
  for (int n = 0; n < 250; ++n) names.push_back("v" + std::to_string(n));
  std::vector<pid_t> writers;
  for (char cWriter = '1'; cWriter <= '8'; ++cWriter)
    writers.push_back(Start([&] {
      FileRegistry registry(sPath_);
      const RegistryKey hKey = Open(registry);
      for (const std::string& sName : names)
        EXPECT_EQ(RegistrySuccess, Set(registry, hKey, cWriter + sName, sName + cWriter));
    }));
  std::set<std::size_t> sizes;
  for (const pid_t nWriter : writers)
    while (Runs(nWriter)) {
      const std::size_t nSize = Content().size();
      EXPECT_TRUE(sizes.empty() || nSize >= *sizes.rbegin()) << "not whole";
      sizes.insert(nSize);
    }
  EXPECT_GE(sizes.size(), 3U) << "nothing seen between beginning and end";
  FileRegistry registry(sPath_);
  for (char cWriter = '1'; cWriter <= '8'; ++cWriter)
    for (const std::string& sName : names)
      EXPECT_EQ(sName + cWriter, Check(registry, cWriter + sName));
}

TEST_F(FileRegistryTest, ALockThatIsNotGivenBackIsNamed) {
  Write(LogFile(""));
  FileRegistry registry(sPath_);
  std::int32_t lResult = RegistryWriteFault;
  const FileDescriptor lock = RegistryStore(sPath_).Lock(lResult);
  EXPECT_EQ(RegistrySuccess, lResult);
  EXPECT_EQ(RegistryUnusable, Set(registry, Open(registry), "A", "1"));
  EXPECT_NE(registry.Trouble().find('"' + sPath_ + ".lock\""), std::string::npos)
      << registry.Trouble();
  EXPECT_EQ(LogFile(""), Content());
}

// The moments of the kills are random, spread so that many come before the new
// file has got its name and many after it, however fast the machine is.
TEST_F(FileRegistryTest, AKilledWriterLeavesAWholeFileToTheNextOne) {
  std::string sRest;  // makes the file long, so that writing it takes a while
  for (int i = 0; i < 100; ++i)
    sRest += "\"" + std::to_string(i) + "\"=\"" + std::string(4000, 'x') + "\"\n";
  const auto file = [&](const std::string& s) { return LogFile("\"A\"=\"" + s + "\"\n" + sRest); };
  const auto isTemporaryThere = [&] { return access((sPath_ + ".tmp").c_str(), F_OK) == 0; };
  Write(file("0"));
  FileRegistry registry(sPath_);
  const RegistryKey hKey = Open(registry);
  std::mt19937 random;
  std::int64_t nLongest = 500'000;  // nanoseconds
  int nWhileWriting = 0;
  int nWritten = 0;
  for (int i = 0; i < 1000; ++i) {
    const pid_t nWriter = Start([&] { Set(registry, hKey, "A", "killed"); });
    siginfo_t ended{};
    while (!isTemporaryThere() && ended.si_pid == 0)
      waitid(P_PID, static_cast<id_t>(nWriter), &ended, WEXITED | WNOHANG | WNOWAIT);
    const auto end = std::chrono::steady_clock::now() +
                     std::chrono::nanoseconds(std::uniform_int_distribution(0L, nLongest)(random));
    while (std::chrono::steady_clock::now() < end) {
    }
    kill(nWriter, SIGKILL);
    waitpid(nWriter, nullptr, 0);
    const std::string sFound = Content();
    const bool bWritten = sFound == file("killed");
    ASSERT_TRUE(bWritten || sFound == file(std::to_string(i))) << "after " << i << " kills";
    nWhileWriting += isTemporaryThere() ? 1 : 0;
    nWritten += bWritten ? 1 : 0;
    nLongest = bWritten ? nLongest * 9 / 10 : nLongest * 11 / 10 + 1000;
    ASSERT_EQ(RegistrySuccess, Set(registry, hKey, "A", std::to_string(i + 1)));
    ASSERT_FALSE(isTemporaryThere());
  }
  EXPECT_GE(nWhileWriting, 2);  // few on a busy machine
  EXPECT_GE(nWritten, 10);
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
    Write(LogFile("\"A\"=\"1\"\n"));  // so lately that its date tells nothing
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
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
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
  const auto open = [&] { return registry.OpenKey(Hive, Log, RegistryReadWrite, hNew_); };
  EXPECT_EQ(RegistryUnusable, open());
  const std::size_t nReads = registry.Reads();
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(RegistryUnusable, open());
    EXPECT_EQ(RegistryUnusable, registry.CreateKey(hKey, "New", RegistryReadWrite, hNew_));
    EXPECT_EQ("<" + std::to_string(RegistryUnusable) + ">", Get(registry, hKey, "A"));
    EXPECT_EQ(RegistryUnusable, Set(registry, hKey, "A", "2"));
    EXPECT_NE(registry.Trouble().find('"' + sPath_ + "\": line 4: "), std::string::npos)
        << registry.Trouble();
  }
  EXPECT_EQ(nReads, registry.Reads());
  EXPECT_EQ(LogFile("A=1\n"), Content());
  Write(LogFile("\"A\"=\"3\"\n"));
  EXPECT_EQ("3", Check(registry, "A"));
  EXPECT_EQ("3", Get(registry, hKey, "A"));

  std::filesystem::remove(sPath_);
  EXPECT_EQ(0, mkfifo(sPath_.c_str(), 0600));
  EXPECT_EQ(RegistryUnusable, open()) << "a pipe";
}

}  // namespace

}  // namespace trelin
