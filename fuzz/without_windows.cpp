// What trelin-check and trelin-status ask of a system's windows, disks and terminals. A
// target has none: no text is too long, no picture loads, files are those of the platform
// in use, nothing is written, and the code page is Windows-1252.

#include "seam/console.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "seam/toolkit.h"
#include "shared/code_page.h"
#include "shared/start_paths.h"
#include "testing/fake_platform.h"

namespace trelin {

std::int32_t LabelLinesCutOff(const std::string& /*sText*/, const LabelFont& /*font*/,
                              Twips /*width*/, Twips /*height*/) {
  return 0;
}

Picture Picture::LoadFromFile(const std::string& sPath) {
  throw PlatformError("load the picture", sPath, "there are no pictures here");
}

PathTests StartPathTests() {
  // Not by opening it: an exception takes as long as a whole check.
  const auto isFile = [](const std::string& sPath) {
    return dynamic_cast<FakeSystem&>(TheSystem()).files.contains(sPath);
  };
  return {isFile, [](const std::string&) { return false; }};
}

std::string WrittenByUser(const std::string& sPath) { return sPath; }
int AnsiCodePage() { return 1252; }
std::string Utf8Of(const std::string& sText) { return ToUtf8(sText); }
std::string AnsiOf(const std::string& sUtf8) { return FromUtf8(sUtf8); }
void WriteErrorOutput(const std::string& /*sUtf8*/) {}

int Picture::WidthPixels() const { return 0; }
int Picture::HeightPixels() const { return 0; }

}  // namespace trelin
