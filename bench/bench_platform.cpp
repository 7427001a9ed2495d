#include "bench/bench_platform.h"

#include <unistd.h>

#include <fstream>
#include <system_error>

#include "systems/host/host_path.h"
#include "texts/string_resources.h"

namespace trelin {

BenchFolder::BenchFolder()
    : path_(std::filesystem::temp_directory_path() / ("trelin-bench-" + std::to_string(getpid()))) {
  std::filesystem::create_directory(path_);
}

BenchFolder::~BenchFolder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
}

void BenchFolder::Write(const std::string& sName, const std::string& sText) const {
  std::ofstream file(path_ / sName, std::ios::binary);
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file << sText;
}

BenchPlatform::BenchPlatform() : system_(ProgramPath(folder / "")) {
  std::filesystem::copy_file(TRELIN_BUILD_DIR "/ENU35000.DLL", folder / "ENU35000.DLL");
  ResetStringResources();
  InitStringResources(1033);
}

}  // namespace trelin
