// Starts a program as a user does who accepts with Enter what comes first and
// leaves the second window with Esc. Prints the titles of the windows. Fails
// when a window or the program's end does not come.
//
//   user PROGRAM

#include <windows.h>

#include <array>
#include <cstdio>

namespace {

constexpr DWORD PatienceMilliseconds = 30000;
constexpr DWORD LookMilliseconds = 100;

struct Search {
  DWORD lProcess;
  HWND hBefore;
  HWND hFound;
};

BOOL CALLBACK LookAtWindow(HWND hWindow, LPARAM lSearch) {
  auto& search = *reinterpret_cast<Search*>(lSearch);
  DWORD lProcess = 0;
  GetWindowThreadProcessId(hWindow, &lProcess);
  const bool bWanted = lProcess == search.lProcess && hWindow != search.hBefore &&
                       IsWindowVisible(hWindow) && GetWindowTextLengthA(hWindow) > 0;
  if (bWanted) search.hFound = hWindow;
  return bWanted ? FALSE : TRUE;
}

// A window of the process other than hBefore; null when none comes.
HWND WaitForWindow(const PROCESS_INFORMATION& process, HWND hBefore) {
  Search search{process.dwProcessId, hBefore, nullptr};
  for (DWORD lWaited = 0; lWaited < PatienceMilliseconds; lWaited += LookMilliseconds) {
    EnumWindows(LookAtWindow, reinterpret_cast<LPARAM>(&search));
    if (search.hFound) return search.hFound;
    if (WaitForSingleObject(process.hProcess, LookMilliseconds) == WAIT_OBJECT_0) break;
  }
  return nullptr;
}

// To the control that has the focus.
void PressKey(const PROCESS_INFORMATION& process, WPARAM nKey) {
  Sleep(5 * LookMilliseconds);  // the window comes before its focus
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(process.dwThreadId, &info);
  const HWND hTarget = info.hwndFocus ? info.hwndFocus : info.hwndActive;
  PostMessageA(hTarget, WM_KEYDOWN, nKey, 1);
  PostMessageA(hTarget, WM_KEYUP, nKey, static_cast<LPARAM>(0xC0000001));
}

// As a screen reader does of each control, for which the program loads what it
// needs to answer.
BOOL CALLBACK AskForObject(HWND hWindow, LPARAM) {
  DWORD_PTR result = 0;
  SendMessageTimeoutA(hWindow, WM_GETOBJECT, 0, OBJID_CLIENT, SMTO_NORMAL, PatienceMilliseconds,
                      &result);
  return TRUE;
}

bool Use(const PROCESS_INFORMATION& process) {
  HWND hWindow = nullptr;
  for (const WPARAM nKey : {VK_RETURN, VK_ESCAPE}) {
    hWindow = WaitForWindow(process, hWindow);
    if (!hWindow) return false;
    std::array<char, 256> title{};
    GetWindowTextA(hWindow, title.data(), title.size());
    std::printf("%s\n", title.data());
    EnumChildWindows(hWindow, AskForObject, 0);
    PressKey(process, nKey);
  }
  return WaitForSingleObject(process.hProcess, PatienceMilliseconds) == WAIT_OBJECT_0;
}

}  // namespace

int main(int nArguments, char** arguments) {
  if (nArguments != 2) return 2;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessA(nullptr, arguments[1], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &process)) {
    std::printf("%s does not start\n", arguments[1]);
    return 1;
  }
  const bool bUsed = Use(process);
  if (!bUsed) {
    std::printf("a window or the end did not come\n");
    TerminateProcess(process.hProcess, 1);
  }
  DWORD lExitCode = 0;
  GetExitCodeProcess(process.hProcess, &lExitCode);
  std::printf("exit code %lu\n", lExitCode);
  return bUsed ? 0 : 1;
}
