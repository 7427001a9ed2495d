#include <windows.h>
#include <gtest/gtest.h>
#include <objbase.h>

#include "tests/installer.h"

// Windows open on the desktop and take the focus from each other: nobody should
// use mouse or keyboard meanwhile.
int main(int argc, char** argv) {
  if (trelin::ActAsInstaller(argc, argv)) return 0;
  testing::InitGoogleTest(&argc, argv);
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const int nResult = RUN_ALL_TESTS();
  CoUninitialize();
  return nResult;
}
