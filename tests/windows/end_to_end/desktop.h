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

// Wine 8 fails now and then to start a program: then it is tried again.
void StartProgram(const std::string& sName, const std::function<BOOL()>& create);

std::string TextOf(HWND hWindow);
std::string TextIn(HWND hMessageBox);

// The visible controls of a class that lie in a container, from the top.
std::vector<HWND> ControlsIn(HWND hContainer, const char* pClass);
HWND ButtonIn(HWND hWindow, const std::string& sCaption);

// What is on the screen, at a place in the window's inside; below 0 from its right
// or its bottom.
COLORREF PixelOf(HWND hWindow, POINT place);

// The mouse, at a place in the window's inside.
POINT MiddleOf(HWND hWindow);
void MoveTo(HWND hWindow, POINT place);
void PressAt(HWND hWindow, POINT place);
void ReleaseAt(HWND hWindow, POINT place);
void Click(HWND hWindow);  // in its middle
void TurnWheel(HWND hWindow, int nNotches);

// The keyboard, to the window in use.
void Type(WORD key);
void TypeWithAlt(char c);

void BringToFront(HWND hWindow);

}  // namespace end_to_end
