#include "bench/bench_platform.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <system_error>

#include "systems/host/host_path.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

// One that nobody has, not even a benchmark that was killed.
std::filesystem::path NewFolder() {
  std::string sPath = std::filesystem::temp_directory_path() / "trelin-bench-XXXXXX";
  if (mkdtemp(sPath.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), "make a folder " + sPath);
  return sPath;
}

void UseStringLibrary() {
  ResetStringResources();
  InitStringResources(1033);
}

}  // namespace

BenchFolder::BenchFolder() : path_(NewFolder()), bOwn_(true) {}

BenchFolder::~BenchFolder() {
  if (!bOwn_) return;
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
  UseStringLibrary();
}

BenchPlatform::BenchPlatform(std::filesystem::path suite)
    : folder(std::move(suite)), system_(ProgramPath(folder / "")) {
  UseStringLibrary();
}

}  // namespace trelin
