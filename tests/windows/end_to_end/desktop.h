#pragma once

#include <windows.h>

#include <string>
#include <vector>

// The hand and the eye of a user, and what an automation client is told of
// another program's windows.
namespace end_to_end {

std::string TextOf(HWND hWindow);
std::string TextIn(HWND hMessageBox);
SIZE InsideOf(HWND hWindow);  // without its frame, in pixels
bool IsCentered(HWND hWindow);
HWND FocusedControl(HWND hWindow);  // of the window's thread

// The visible controls of a class that lie in a container, from the top.
std::vector<HWND> ControlsIn(HWND hContainer, const char* pClass);
HWND ButtonIn(HWND hWindow, const std::string& sCaption);

// What is on the screen, at a place in the window's inside.
COLORREF PixelOf(HWND hWindow, POINT place);

// The mouse, at a place in the window's inside.
POINT MiddleOf(HWND hWindow);
void MoveTo(HWND hWindow, POINT place);
void PressAt(HWND hWindow, POINT place);
void ReleaseAt(HWND hWindow, POINT place);
void Click(HWND hWindow);  // in its middle
void ClickCloseBox(HWND hWindow);
void TurnWheel(HWND hWindow, int nNotches);

// The keyboard, to the window in use.
void Type(WORD key);
void TypeWithAlt(char c);

void BringToFront(HWND hWindow);

}  // namespace end_to_end
