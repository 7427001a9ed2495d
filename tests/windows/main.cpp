#include <gtest/gtest.h>

// Windows open on the desktop and take the focus from each other: nobody should
// use mouse or keyboard meanwhile.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
