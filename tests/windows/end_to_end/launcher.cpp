#include "tests/windows/end_to_end/launcher.h"

#include <stdexcept>

#include "tests/windows/end_to_end/desktop.h"

namespace end_to_end {

namespace {

JOBOBJECT_BASIC_ACCOUNTING_INFORMATION Accounting(HANDLE hJob) {
  JOBOBJECT_BASIC_ACCOUNTING_INFORMATION accounting{};
  QueryInformationJobObject(hJob, JobObjectBasicAccountingInformation, &accounting,
                            sizeof accounting, nullptr);
  return accounting;
}

// So that the programs do not outlive this one either.
HANDLE CreateJob() {
  const HANDLE hJob = CreateJobObjectA(nullptr, nullptr);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(hJob, JobObjectExtendedLimitInformation, &limits, sizeof limits);
  return hJob;
}

bool IsInJob(HWND hWindow, HANDLE hJob) {
  DWORD process = 0;
  GetWindowThreadProcessId(hWindow, &process);
  const HANDLE hProcess = OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, process);
  BOOL bInJob = FALSE;
  if (hProcess != nullptr) IsProcessInJob(hProcess, hJob, &bInJob);
  CloseHandle(hProcess);
  return bInJob != FALSE;
}

}  // namespace

Launcher::Launcher(const std::filesystem::path& program, const std::wstring& sArguments)
    : hJob_(CreateJob()) {
  std::wstring sCommandLine = L"\"" + program.wstring() + L"\" " + sArguments;
  const std::filesystem::path folder = program.parent_path();
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  StartProgram(program.string(), [&] {
    return CreateProcessW(program.c_str(), sCommandLine.data(), nullptr, nullptr, FALSE,
                          CREATE_SUSPENDED, nullptr, folder.c_str(), &startup, &process_);
  });
  AssignProcessToJobObject(hJob_, process_.hProcess);
  ResumeThread(process_.hThread);
}

Launcher::~Launcher() {
  TerminateJobObject(hJob_, 1);
  Within(LongestWait, [this] { return Accounting(hJob_).ActiveProcesses == 0; });
  for (HANDLE h : {process_.hThread, process_.hProcess, hJob_}) CloseHandle(h);
}

HWND Launcher::Find(const std::string& sClass, const std::string& sCaption) const {
  HWND hWindow = nullptr;
  do {
    hWindow = FindWindowExA(nullptr, hWindow, sClass.c_str(), sCaption.c_str());
  } while (hWindow != nullptr && !(IsWindowVisible(hWindow) && IsInJob(hWindow, hJob_)));
  return hWindow;
}

HWND Launcher::Window(const char* pClass, const std::string& sCaption) const {
  HWND hWindow = nullptr;
  if (!Within(LongestWait, [&] { return (hWindow = Find(pClass, sCaption)) != nullptr; }))
    throw std::runtime_error("The window \"" + sCaption + "\" did not come.");
  BringToFront(hWindow);
  return hWindow;
}

int Launcher::StartedPrograms() const {
  return static_cast<int>(Accounting(hJob_).TotalProcesses) - 1;
}

DWORD Launcher::WaitForEnd() const {
  WaitForSingleObject(process_.hProcess, 10000);
  DWORD exitCode = 0;
  GetExitCodeProcess(process_.hProcess, &exitCode);
  return exitCode;
}

Menu::Menu(HWND hWindow) : hForm(hWindow) {
  hList = ControlsIn(hForm, "TrelinPictureBox").at(0);
  hScrollBar = ControlsIn(hList, "ScrollBar").at(0);
  for (HWND hBox : ControlsIn(hList, "TrelinPictureBox")) {
    const std::vector<HWND> labels = ControlsIn(hBox, "Static");
    const HWND hIcon = ControlsIn(hBox, "TrelinPictureBox").at(0);
    rows.push_back({hBox, hIcon, labels.at(0), labels.at(1), labels.at(2)});
  }
}

std::string Menu::Text() const {
  std::string sText;
  for (const Row& row : rows)
    sText += TextOf(row.hTitle) + ": " + TextOf(row.hStatus) +
             (PixelOf(row.hBox, {-3, 5}) == RGB(0, 255, 255) ? " <-\n" : "\n");
  return sText;
}

}  // namespace end_to_end
