#include <gtest/gtest.h>
#include <sys/statvfs.h>

#include <QtGlobal>
#include <cstdlib>

#include "systems/host/toolkit_setup.h"

// Temporary folders lie in memory where programs can run from there: thousands
// of small files would wait for a disk that others use, too.
static void UseFoldersInMemory() {
  constexpr const char* Memory = "/dev/shm";
  struct statvfs status {};
  if (statvfs(Memory, &status) == 0 && (status.f_flag & (ST_RDONLY | ST_NOEXEC)) == 0)
    setenv("TMPDIR", Memory, 0);
}

// Windows open on a screen in memory; set QT_QPA_PLATFORM to see them.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const auto application = trelin::MakeApplication(argc, argv);
  UseFoldersInMemory();  // only now: Qt has its own there
  return RUN_ALL_TESTS();
}
