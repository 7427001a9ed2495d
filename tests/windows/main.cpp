#include <gtest/gtest.h>

#include "tests/app/installer.h"

// Windows open on the desktop and take the focus from each other: nobody should
// use mouse or keyboard meanwhile.
int main(int argc, char** argv) {
  if (trelin::ActAsInstaller(argc, argv)) return 0;
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
