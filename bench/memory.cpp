#include "bench/memory.h"

#include <malloc.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace trelin {

namespace {

// A figure of /proc/self/status, in bytes.
double StatusBytes(const std::string& sName) {
  std::ifstream file("/proc/self/status");
  for (std::string sLine; std::getline(file, sLine);)
    if (sLine.starts_with(sName + ":")) return 1024 * std::stod(sLine.substr(sName.size() + 1));
  throw std::runtime_error(sName + " is not there");
}

}  // namespace

MemoryGrowth::MemoryGrowth() {
  malloc_trim(0);
  before_ = StatusBytes("VmRSS");
  std::ofstream("/proc/self/clear_refs") << "5";  // the peak counts from here
}

double MemoryGrowth::Bytes() const { return StatusBytes("VmHWM") - before_; }

}  // namespace trelin
