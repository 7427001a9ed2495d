#include "testing/windows/message_pump.h"

#include <windows.h>
#include <commctrl.h>

#include <array>
#include <chrono>
#include <utility>

namespace trelin {

namespace {

// Pumping goes on a fiber, a stack of its own, that can be left in the middle.
struct Pump {
  void* pFiber = nullptr;
  void* pScript = nullptr;  // the fiber that waits for it
  bool bDone = false;
};
Pump* tracking = nullptr;  // left within the system's loop
Pump* running = nullptr;
void* pCurrent = nullptr;  // the fiber that runs

constexpr std::size_t StackBytes = 1024 * 1024;

void SwitchTo(void* pFiber) {
  void* const pHere = std::exchange(pCurrent, pFiber);
  SwitchToFiber(pFiber);
  pCurrent = pHere;
}

// A message box is a dialog: its own loop would answer the keys for it.
void Dispatch(MSG& message) {
  const HWND hActive = GetActiveWindow();
  if (IsMessageBox(hActive) && IsDialogMessageA(hActive, &message)) return;
  TranslateMessage(&message);
  DispatchMessageA(&message);
}

void DispatchAll() {
  MSG message{};
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));
    Dispatch(message);
  }
}

void CALLBACK RunPump(void* pPump) {
  auto& pump = *static_cast<Pump*>(pPump);
  DispatchAll();
  pump.bDone = true;
  SwitchTo(pump.pScript);
}

}  // namespace

std::string ClassOf(HWND hWindow) {
  std::array<char, 64> name{};
  GetClassNameA(hWindow, name.data(), name.size());
  return name.data();
}

bool IsMessageBox(HWND hWindow) { return ClassOf(hWindow) == "#32770"; }

void PumpMessages() {
  if (pCurrent == nullptr) pCurrent = ConvertThreadToFiber(nullptr);
  Pump* const pOuter = running;
  Pump* pPump = tracking;
  tracking = nullptr;
  if (pPump == nullptr) {
    pPump = new Pump;
    pPump->pFiber = CreateFiber(StackBytes, RunPump, pPump);
  }
  pPump->pScript = pCurrent;
  running = pPump;
  SwitchTo(pPump->pFiber);
  running = pOuter;
  if (!pPump->bDone) {
    tracking = pPump;
    return;
  }
  DeleteFiber(pPump->pFiber);
  delete pPump;
}

void PumpMessagesFor(int nMilliseconds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(nMilliseconds);
  do {
    PumpMessages();
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 1, QS_ALLINPUT);
  } while (std::chrono::steady_clock::now() < end);
  PumpMessages();
}

void ReturnFromTracking() {
  const bool bIdle = HIWORD(GetQueueStatus(QS_INPUT | QS_POSTMESSAGE | QS_PAINT)) == 0;
  const bool bTracking = ClassOf(GetCapture()) == WC_SCROLLBARA;
  if (running != nullptr && bIdle && bTracking && pCurrent == running->pFiber)
    SwitchTo(running->pScript);
}

}  // namespace trelin
