#pragma once

#include <string>

#include "seam/toolkit.h"

// What the scripts of driver.h need of a system, in which they run on ticks.
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

}  // namespace trelin::DriverSystem
