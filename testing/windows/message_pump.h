#pragma once

#include <windows.h>

#include <string>

namespace trelin {

// Lets the program answer all input and paints that wait for it, as its own
// loop would. While a thumb is dragged the system keeps the thread in a loop of
// its own: then this returns within it, and the next call goes on there.
void PumpMessages();
void PumpMessagesFor(int nMilliseconds);

std::string ClassOf(HWND hWindow);
bool IsMessageBox(HWND hWindow);

// To be called from a timer: leaves the system's loop for the script that waits
// in PumpMessages, once the loop has nothing left to do.
void ReturnFromTracking();

}  // namespace trelin
