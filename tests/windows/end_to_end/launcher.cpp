#include "tests/windows/end_to_end/launcher.h"

#include <stdexcept>

#include "tests/windows/end_to_end/desktop.h"

namespace end_to_end {

namespace {

// So that the programs do not outlive this one either.
HANDLE CreateJob() {
  const HANDLE hJob = CreateJobObjectA(nullptr, nullptr);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(hJob, JobObjectExtendedLimitInformation, &limits, sizeof limits);
  return hJob;
}

bool IsIdle(HANDLE hJob) {
  JOBOBJECT_BASIC_ACCOUNTING_INFORMATION accounting{};
  QueryInformationJobObject(hJob, JobObjectBasicAccountingInformation, &accounting,
                            sizeof accounting, nullptr);
  return accounting.ActiveProcesses == 0;
}

}  // namespace

// Wine 8 fails now and then to start a program: then it is tried again.
Launcher::Launcher(const std::filesystem::path& program, const std::wstring& sArguments)
    : hJob_(CreateJob()) {
  std::wstring sCommandLine = L"\"" + program.wstring() + L"\" " + sArguments;
  const std::filesystem::path folder = program.parent_path();
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  for (int nTry = 1;
       !CreateProcessW(program.c_str(), sCommandLine.data(), nullptr, nullptr, FALSE,
                       CREATE_SUSPENDED, nullptr, folder.c_str(), &startup, &process_);
       ++nTry) {
    const DWORD error = GetLastError();
    if (error != ERROR_INTERNAL_ERROR || nTry == 3)
      throw std::runtime_error(program.string() + " does not start: " + std::to_string(error));
  }
  AssignProcessToJobObject(hJob_, process_.hProcess);
  ResumeThread(process_.hThread);
}

Launcher::~Launcher() {
  TerminateJobObject(hJob_, 1);
  Within(LongestWait, [this] { return IsIdle(hJob_); });
  for (HANDLE h : {process_.hThread, process_.hProcess, hJob_}) CloseHandle(h);
}

DWORD Launcher::WaitForEnd() const {
  WaitForSingleObject(process_.hProcess, 10000);
  DWORD exitCode = 0;
  GetExitCodeProcess(process_.hProcess, &exitCode);
  return exitCode;
}

}  // namespace end_to_end
