#pragma once

#include <QWidget>

namespace trelin {

// Asks the window manager to keep a window that has just been shown out of
// its task bar. Only X11 has a way to ask for that.
void LeaveTaskbar(const QWidget& window);

}  // namespace trelin
