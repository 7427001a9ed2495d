// The input is a picture file.

#include "shared/picture_file.h"

#include <cstddef>
#include <stdexcept>
#include <string>

#include "fuzz/target.h"
#include "testing/fake_platform.h"

namespace trelin {

namespace {

std::string Read(std::string_view sInput) {
  FakePlatform platform;
  platform.faults.bCounts = false;
  platform.system.files["a picture"] = sInput;
  platform.system.nPiece = 1 + sInput.size() % 5000;
  const auto file = platform.system.OpenInput("a picture");
  return ReadPictureFile(*file);
}

// A bitmap is as long as it says at least.
void CheckBitmap(const std::string& sBytes) {
  if (sBytes.size() < 6) return;
  std::size_t nLength = 0;
  for (const std::size_t i : {5U, 4U, 3U, 2U})
    nLength = nLength * 256 + static_cast<unsigned char>(sBytes[i]);
  Check(nLength <= sBytes.size(), "a bitmap is not cut off");
}

}  // namespace

void Try(std::string_view sInput) {
  try {
    const std::string sBytes = Read(sInput);
    Check(sBytes == sInput, "the whole file is read");
    const PictureFormat format = FormatOfPicture(sBytes);
    if (format == PictureFormat::Bmp) CheckBitmap(sBytes);
    if (format == PictureFormat::Ico)
      Check(IconImagePlace(sBytes, ShownIcon(sBytes)) < sBytes.size(), "the icon is in the file");
  } catch (const std::runtime_error& error) {
    Check(*error.what() != '\0', "there is a reason");
  }
}

}  // namespace trelin
