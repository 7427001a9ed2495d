#include "systems/host/host_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

#include "shared/code_page.h"
#include "shared/start_paths.h"
#include "systems/host/host_files.h"
#include "systems/host/host_path.h"

namespace trelin {

namespace {

const char* const StartOperation = "start the program";
constexpr int StatusDescriptor = 3;  // in the new process, until the program runs

// A signal between fork and exec would run the launcher's handlers.
class SignalsBlocked {
 public:
  SignalsBlocked() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  SignalsBlocked(const SignalsBlocked&) = delete;
  SignalsBlocked& operator=(const SignalsBlocked&) = delete;

 private:
  sigset_t before_;
};

// All that the new process needs, prepared while memory may be allocated.
struct Launch {
  const char* pProgram;
  char* const* pArguments;  // ends with a null pointer
  int hStatus;              // where a failure's errno value is written
  int hHighest;             // the highest descriptor that is open
};

// From here to the exec the process may only call what is safe in a signal
// handler: other threads' locks, the allocator's among them, stay as they
// were when it forked.

[[noreturn]] void ReportAndExit(int hStatus) {
  const int lReason = errno;
  while (write(hStatus, &lReason, sizeof lReason) < 0 && errno == EINTR) {
  }
  _exit(127);
}

void ResetSignalActions() {
  struct sigaction action = {};
  action.sa_handler = SIG_DFL;
  for (int lSignal = 1; lSignal < NSIG; ++lSignal) sigaction(lSignal, &action, nullptr);
}

void CloseFrom(int hFirst, int hHighest) {
  if (close_range(static_cast<unsigned>(hFirst), ~0U, 0) == 0) return;
  for (int hFile = hFirst; hFile <= hHighest; ++hFile) close(hFile);  // an older kernel
}

[[noreturn]] void RunProgram(const Launch& launch) {
  ResetSignalActions();
  if (launch.hStatus != StatusDescriptor && dup3(launch.hStatus, StatusDescriptor, O_CLOEXEC) < 0) {
    ReportAndExit(launch.hStatus);
  }
  CloseFrom(StatusDescriptor + 1, launch.hHighest);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  execv(launch.pProgram, launch.pArguments);
  ReportAndExit(StatusDescriptor);
}

// The process in between ends at once: the program is then a child of the
// system's first process, which takes its exit code.
[[noreturn]] void RunIntermediate(const Launch& launch) {
  setsid();
  const pid_t hProgram = fork();
  if (hProgram == 0) RunProgram(launch);
  if (hProgram < 0) ReportAndExit(launch.hStatus);
  _exit(0);
}

// Ordinary code again, in the launcher.

int HighestDescriptor() {
  int hHighest = StatusDescriptor;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", error)) {
    hHighest = std::max(hHighest, std::stoi(entry.path().filename().string()));
  }
  return hHighest;
}

pid_t ForkIntermediate(const Launch& launch) {
  const SignalsBlocked signals;
  const pid_t hChild = fork();
  if (hChild == 0) RunIntermediate(launch);
  return hChild;
}

// The errno value that the new process reported, or 0 when it closed the pipe
// without a word because the program runs.
int ReadStatus(int hStatus) {
  int lReason = 0;
  while (read(hStatus, &lReason, sizeof lReason) < 0) {
    if (errno != EINTR) return errno;
  }
  return lReason;
}

void Reap(pid_t hChild) {
  while (waitpid(hChild, nullptr, 0) < 0 && errno == EINTR) {
  }
}

// Returns 0 or the errno value of what failed.
int StartDetached(const char* pProgram, char* const* pArguments) {
  int ends[2] = {};
  if (pipe2(ends, O_CLOEXEC) != 0) return errno;
  const FileDescriptor reader(ends[0]);
  FileDescriptor writer(ends[1]);
  const pid_t hChild = ForkIntermediate({pProgram, pArguments, writer.Get(), HighestDescriptor()});
  if (hChild < 0) return errno;
  writer.Close();
  const int lReason = ReadStatus(reader.Get());
  Reap(hChild);
  return lReason;
}

int StartDetached(const std::string& sHostPath, const std::vector<std::string>& arguments) {
  std::vector<std::string> texts = {sHostPath};
  std::transform(arguments.begin(), arguments.end(), std::back_inserter(texts), ToUtf8);
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& sText : texts) pointers.push_back(sText.data());
  pointers.push_back(nullptr);
  return StartDetached(sHostPath.c_str(), pointers.data());
}

bool IsWindowsProgram(const std::string& sHostPath) {
  std::ifstream file(sHostPath, std::ios::binary);
  return file.get() == 'M' && file.get() == 'Z';
}

std::string StartReason(const std::string& sHostPath, int lReason) {
  using std::filesystem::perms;
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(sHostPath, error);
  const perms execute = perms::owner_exec | perms::group_exec | perms::others_exec;
  if (lReason == ENOENT && std::filesystem::exists(status)) {
    return "the interpreter that it asks for is missing";
  }
  if (lReason == EACCES && std::filesystem::is_directory(status)) {
    return "it is a folder, not a program";
  }
  if (lReason == EACCES && std::filesystem::exists(status) &&
      (status.permissions() & execute) == perms::none) {
    return "the file is not marked as executable";
  }
  if (lReason == ENOEXEC && IsWindowsProgram(sHostPath)) {
    return "it is a Windows program, which this system cannot run";
  }
  if (lReason == ENOEXEC) return "it is not a program that this system can run";
  return SystemReason(lReason);
}

bool IsOfType(const std::string& sPath, mode_t type) {
  struct stat status = {};
  return StatInAnyCase(sPath, status) && (status.st_mode & S_IFMT) == type;
}

bool IsFile(const std::string& sPath) { return IsOfType(sPath, S_IFREG); }

bool IsFolder(const std::string& sPath) { return IsOfType(sPath, S_IFDIR); }

}  // namespace

PathTests StartPathTests() { return {IsFile, IsFolder}; }

void StartHostProgram(const std::string& sCommandLine) {
  RefuseNul(StartOperation, sCommandLine);
  const CommandLine command = ResolveCommandLine(sCommandLine, StartPathTests());
  const std::string sHostPath = HostPath(command.sProgram);
  if (!sHostPath.starts_with('/'))
    throw PlatformError(StartOperation,
                        sHostPath.empty() ? WrittenPath(sCommandLine) : ShownPath(sHostPath),
                        "it is not a full path; please start Trelin again and give the folder with "
                        "its full path, such as /media/disk1");
  const int lReason = StartDetached(sHostPath, SplitArguments(command.sArguments));
  if (lReason != 0)
    throw PlatformError(StartOperation, ShownPath(sHostPath), StartReason(sHostPath, lReason));
}

}  // namespace trelin
