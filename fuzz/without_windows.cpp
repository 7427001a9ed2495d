// What trelin-check asks of a system's windows and disks. A target has none: no text is
// too long, no picture loads, and files are those of the platform in use.

#include "seam/platform.h"
#include "seam/platform_error.h"
#include "seam/toolkit.h"
#include "shared/start_paths.h"

namespace trelin {

std::int32_t LabelLinesCutOff(const std::string& /*sText*/, const LabelFont& /*font*/,
                              Twips /*width*/, Twips /*height*/) {
  return 0;
}

Picture Picture::LoadFromFile(const std::string& sPath) {
  throw PlatformError("load the picture", sPath, "there are no pictures here");
}

PathTests StartPathTests() {
  const auto isFile = [](const std::string& sPath) {
    try {
      return TheSystem().OpenInput(sPath) != nullptr;
    } catch (const PlatformError&) {
      return false;
    }
  };
  return {isFile, [](const std::string&) { return false; }};
}

int Picture::WidthPixels() const { return 0; }
int Picture::HeightPixels() const { return 0; }

}  // namespace trelin
