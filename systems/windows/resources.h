#pragma once

// Numbers of the program's resources.
#define ICON_PROGRAM 1
