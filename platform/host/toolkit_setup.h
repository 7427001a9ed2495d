#pragma once

#include <QApplication>

namespace trelin {

// What the toolkit needs of Qt: to be called before and after the application
// object is made.
void ToolkitBeforeApplication();
void ToolkitAfterApplication(QApplication& application);

}  // namespace trelin
