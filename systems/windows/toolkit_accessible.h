#pragma once

#include <windows.h>

namespace trelin {

class BoxWindow;

// The answer to WM_GETOBJECT for a box that has a role: an object that tells
// role, name and state. 0, which leaves it to the system, when there is none.
LRESULT AccessibleObjectOf(const BoxWindow& box, WPARAM wParam);

// Tells accessibility clients of an event of a window. The events are those of
// NotifyWinEvent.
inline void TellClients(DWORD event, HWND hWindow) {
  NotifyWinEvent(event, hWindow, OBJID_CLIENT, CHILDID_SELF);
}

}  // namespace trelin
