#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

// A screen reader's view of the windows, through the system's own interface
// for it.
namespace trelin {

// Role, name and states, as in "list item <Cable> focused selected".
std::string DescribeWindow(HWND hWindow);
std::vector<std::string> DescribeChildrenOf(HWND hWindow);

void DoDefaultAction(HWND hWindow);

// The changes of which the system tells while the action runs, by kind and
// name: "name <Cable>", also "focus", "selection" and "announcement".
std::vector<std::string> EventsDuring(const std::function<void()>& action);

}  // namespace trelin
