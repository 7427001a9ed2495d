#include <gtest/gtest.h>

#include <QApplication>

#include "platform/host/toolkit_setup.h"

// Windows open on a screen in memory; set QT_QPA_PLATFORM to see them.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  trelin::ToolkitBeforeApplication();
  QApplication application(argc, argv);
  trelin::ToolkitAfterApplication(application);
  return RUN_ALL_TESTS();
}
