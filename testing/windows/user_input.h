#pragma once

#include <windows.h>

// What a user does to the windows of this thread. The program has answered it
// when a function returns.
namespace trelin {

// The pointer, at a point of the screen. It moves there before it presses or
// releases.
void MovePointer(POINT point);
void PressAt(POINT point);
void ReleaseAt(POINT point);
void ClickAt(POINT point);
void DoubleClickAt(POINT point);
void TurnWheelAt(POINT point, int nNotches);  // below 0: down

// Keys by their virtual codes; flags are those of KEYBDINPUT. The modifier, if
// there is one, is held down meanwhile.
void TypeKey(WORD key, DWORD flags = 0, WORD modifier = 0);

}  // namespace trelin
