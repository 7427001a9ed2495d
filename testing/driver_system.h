#pragma once

#include <string>
#include <vector>

#include "testing/driver.h"

// What the part of driver.h that is the same everywhere needs of a system: scripts,
// which run on ticks, and pixels.
namespace trelin::DriverSystem {

using Window = void*;

Window WindowOf(const Form& form);
Window UsedWindow();  // the one opened last, once it takes input; null without one
bool IsOpen(Window window);
std::string TitleOf(Window window);
void Close(Window window);  // as a user does
void CloseAll();

// Has the tick called again and again from now on, also within another one. Only
// the first call counts.
void KeepTicking(void (*tick)());

// By row and column, of a place relative to the inside of a control.
std::vector<std::vector<Rgb>> PixelsIn(const Control& control, PixelRect rect);

}  // namespace trelin::DriverSystem
