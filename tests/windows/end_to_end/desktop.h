#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

// The hand and the eye of a user, and what an automation client is told of
// another program's windows.
namespace end_to_end {

constexpr std::chrono::seconds LongestWait{10};

// What another process does takes time. Whether the condition became true in time.
bool Within(std::chrono::milliseconds limit, const std::function<bool()>& condition);

// Waits for the window of this title and brings it to the front.
HWND Window(const std::string& sTitle);

// The visible controls of a class that lie in a window, from the top, and the
// lines of their texts.
std::vector<HWND> ControlsIn(HWND hWindow, const std::string& sClass);
std::string TextsIn(HWND hWindow, const std::string& sClass);

// The mouse, over the middle of a control.
void Click(HWND hControl);
void TurnWheel(HWND hControl, int nNotches);

// The keyboard, to the window in use.
void Type(WORD key);
void TypeWithAlt(char c);

}  // namespace end_to_end
