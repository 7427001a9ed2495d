// Starts a program and measures when its windows are shown.
//
//   watch_windows WINDOWS PROGRAM [hold]
//
// Prints one number a window: the milliseconds from just before the program is
// started until that window is on the screen with its contents drawn. Each but
// the last is answered with Enter at once. The program is ended afterwards;
// with hold, when the standard input ends.
//
// From outside a window counts as drawn when it is visible and the system has
// nothing left for it to paint, nor for any window in it. It is asked every
// millisecond.
#include <windows.h>

#include <iostream>
#include <set>
#include <stdexcept>
#include <string>

namespace {

constexpr double PatienceMs = 10'000;

double NowMs() {
  LARGE_INTEGER frequency;
  LARGE_INTEGER count;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&count);
  return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// A started program, which ends with its object.
class Program {
 public:
  explicit Program(std::string sPath) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    if (CreateProcessA(nullptr, sPath.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &process_) == 0)
      throw std::runtime_error(sPath + " does not start.");
  }
  ~Program() {
    TerminateProcess(process_.hProcess, 0);
    WaitForSingleObject(process_.hProcess, INFINITE);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  DWORD Id() const { return process_.dwProcessId; }

 private:
  PROCESS_INFORMATION process_{};
};

BOOL CALLBACK LookForPaint(HWND hWindow, LPARAM lParam) {
  auto& bAwaited = *reinterpret_cast<bool*>(lParam);
  bAwaited = IsWindowVisible(hWindow) && GetUpdateRect(hWindow, nullptr, FALSE);
  return !bAwaited;
}

bool IsPainted(HWND hWindow) {
  bool bAwaited = false;
  if (LookForPaint(hWindow, reinterpret_cast<LPARAM>(&bAwaited)))
    EnumChildWindows(hWindow, LookForPaint, reinterpret_cast<LPARAM>(&bAwaited));
  return !bAwaited;
}

struct Search {
  DWORD process;
  std::set<HWND>& drawn;  // those that were found before
  HWND hFound = nullptr;
};

// Ends the enumeration at a window of the process that is drawn for the first
// time.
BOOL CALLBACK LookAt(HWND hWindow, LPARAM lParam) {
  auto& search = *reinterpret_cast<Search*>(lParam);
  DWORD process = 0;
  GetWindowThreadProcessId(hWindow, &process);
  if (process != search.process || !IsWindowVisible(hWindow) || search.drawn.contains(hWindow))
    return TRUE;
  if (!IsPainted(hWindow)) return TRUE;
  search.drawn.insert(hWindow);
  search.hFound = hWindow;
  return FALSE;
}

void WaitForNextDrawn(DWORD process, std::set<HWND>& drawn, double end) {
  while (NowMs() < end) {
    Search search{process, drawn};
    EnumWindows(LookAt, reinterpret_cast<LPARAM>(&search));
    if (search.hFound != nullptr) return;
    Sleep(1);
  }
  throw std::runtime_error("No window was shown.");
}

void PressEnter() {
  keybd_event(VK_RETURN, 0, 0, 0);
  keybd_event(VK_RETURN, 0, KEYEVENTF_KEYUP, 0);
}

void Watch(int nWindows, const char* pPath, bool bHold) {
  std::set<HWND> drawn;
  const double start = NowMs();
  const Program program(pPath);
  for (int i = 1; i <= nWindows; ++i) {
    WaitForNextDrawn(program.Id(), drawn, start + PatienceMs);
    const double shown = NowMs();
    if (i < nWindows) PressEnter();
    std::cout << shown - start << "\n";
  }
  std::cout.flush();
  if (bHold) std::cin.get();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3 && argc != 4) {
    std::cerr << "watch_windows WINDOWS PROGRAM [hold]\n";
    return 2;
  }
  try {
    Watch(std::stoi(argv[1]), argv[2], argc == 4);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
